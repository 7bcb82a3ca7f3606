#include "emulator/door/descriptors.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace emulator {

int Descriptors::open(Node node, int flags)
{
    const int number = lowest_free(first);
    if (number < 0)
        return number;
    // There are as many files as descriptors: one is unused.
    OpenFile& file = *std::find_if(files_.begin(), files_.end(), [](const OpenFile& f) { return f.descriptors == 0; });
    file = {.node = node, .flags = flags & ~O_CLOEXEC};
    occupy(number, file, flags);
    return number;
}

int Descriptors::close(int number)
{
    if (file(number) == nullptr)
        return -EBADF;
    --at(number).file->descriptors;
    at(number) = {};
    return 0;
}

int Descriptors::duplicate(int number, int at_least, int flags)
{
    OpenFile* const original = file(number);
    if (original == nullptr)
        return -EBADF;
    if (at_least < 0 || at_least >= first + most)
        return -EINVAL;
    const int copy = lowest_free(at_least);
    if (copy >= 0)
        occupy(copy, *original, flags);
    return copy;
}

int Descriptors::duplicate_to(int number, int replaced, int flags)
{
    OpenFile* const original = file(number);
    if (original == nullptr)
        return -EBADF;
    close(replaced);
    occupy(replaced, *original, flags);
    return replaced;
}

template <class Action>
void Descriptors::for_each_open(unsigned first_number, unsigned last_number, Action action)
{
    for (int number = first; number < first + most; ++number)
        if (const auto place = static_cast<unsigned>(number);
            place >= first_number && place <= last_number && file(number) != nullptr)
            action(number);
}

void Descriptors::close_all(unsigned first_number, unsigned last_number)
{
    for_each_open(first_number, last_number, [this](int number) { close(number); });
}

void Descriptors::close_all_on_exec(unsigned first_number, unsigned last_number)
{
    for_each_open(first_number, last_number, [this](int number) { set_flags(number, FD_CLOEXEC); });
}

OpenFile* Descriptors::file(int number)
{
    return in_range(number) ? at(number).file : nullptr;
}

void Descriptors::set_flags(int number, int flags)
{
    at(number).flags = flags & FD_CLOEXEC;
}

int Descriptors::lowest_free(int at_least) const
{
    for (int number = std::max(at_least, first); number < first + most; ++number)
        if (at(number).file == nullptr)
            return number;
    return -EMFILE;
}

void Descriptors::occupy(int number, OpenFile& file, int flags)
{
    ++file.descriptors;
    at(number) = {.file = &file, .flags = (flags & O_CLOEXEC) != 0 ? FD_CLOEXEC : 0};
}

} // namespace emulator
