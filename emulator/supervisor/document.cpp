#include "emulator/supervisor/document.h"

#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/output.h"

#include <array>
#include <cerrno>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace emulator {

Descriptor document_of(std::string_view text)
{
    Descriptor made(memfd_create("lumozeph-emulator", MFD_CLOEXEC));
    if (!made || !write_all(made.number(), text))
        fail("cannot keep a document");
    return made;
}

std::string text_of(const Descriptor& document)
{
    struct stat found
    {};
    if (fstat(document.number(), &found) != 0 || !S_ISREG(found.st_mode))
        throw std::runtime_error("this is no document");
    std::string text;
    std::array<char, 65536> piece;
    ssize_t length = 0;
    while ((length = pread(document.number(), piece.data(), piece.size(), static_cast<off_t>(text.size()))) > 0)
        text.append(piece.data(), static_cast<std::size_t>(length));
    if (length < 0)
        fail("cannot read a document");
    return text;
}

} // namespace emulator
