#include "emulator/door/preload.h"

#include <array>
#include <cstdlib>
#include <elf.h>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace emulator {

namespace {

namespace fs = std::filesystem;

fs::path find(const Preloaded& library)
{
    const fs::path own = fs::read_symlink("/proc/self/exe").parent_path();
    for (const char* const path : {library.as_built, library.as_installed}) {
        std::error_code error;
        if (fs::path found = fs::canonical(own / path, error); !error)
            return found;
    }
    throw std::runtime_error(fmt::format("cannot find '{}'", fs::path(library.as_installed).filename().string()));
}

std::string environment(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): there are no other threads
    return value != nullptr ? value : "";
}

// The file that execvp(3) will take, if there is one.
std::optional<fs::path> find_program(const std::string& name)
{
    if (name.find('/') != std::string::npos)
        return name;
    std::string folders = environment("PATH");
    if (folders.empty())
        folders = "/bin:/usr/bin";
    std::istringstream rest(folders);
    for (std::string folder; std::getline(rest, folder, ':');) {
        fs::path file = fs::path(folder.empty() ? "." : folder) / name;
        if (access(file.c_str(), X_OK) == 0 && !fs::is_directory(file))
            return file;
    }
    return std::nullopt;
}

[[noreturn]] void refuse(const fs::path& program, const Preloaded& library, std::string_view why)
{
    throw std::runtime_error(fmt::format("cannot {} '{}'{}: {}", library.task, program.string(), library.where, why));
}

// The dynamic linker preloads nothing into programs that gain privileges.
void refuse_privileges(const fs::path& program, const Preloaded& library)
{
    struct stat status = {};
    if (stat(program.c_str(), &status) != 0)
        return;
    const bool user_changes = (status.st_mode & S_ISUID) != 0 && status.st_uid != getuid();
    const bool group_changes =
        (status.st_mode & (S_ISGID | S_IXGRP)) == (S_ISGID | S_IXGRP) && status.st_gid != getgid();
    const bool gains_capabilities = getuid() != 0 && getxattr(program.c_str(), "security.capability", nullptr, 0) > 0;
    if (user_changes || group_changes || gains_capabilities)
        refuse(program, library, "it runs with other privileges");
}

template <class Record>
std::optional<Record> read_record(std::istream& file, std::uint64_t at)
{
    Record record;
    file.seekg(static_cast<std::streamoff>(at));
    if (!file.read(reinterpret_cast<char*>(&record), sizeof record))
        return std::nullopt;
    return record;
}

void refuse_foreign_and_static(const fs::path& program, const Preloaded& library, std::istream& file)
{
    static const Elf64_Ehdr own = [] {
        std::ifstream self("/proc/self/exe", std::ios::binary);
        return read_record<Elf64_Ehdr>(self, 0).value();
    }();
    const auto header = read_record<Elf64_Ehdr>(file, 0);
    if (!header || header->e_ident[EI_CLASS] != own.e_ident[EI_CLASS] || header->e_machine != own.e_machine)
        refuse(program, library, "it is of another architecture than the emulator");
    for (unsigned i = 0; i < header->e_phnum; ++i)
        if (const auto segment =
                read_record<Elf64_Phdr>(file, header->e_phoff + std::uint64_t {i} * sizeof(Elf64_Phdr));
            segment && segment->p_type == PT_INTERP)
            return;
    refuse(program, library, fmt::format("it is linked statically; {}", library.instead));
}

// A program that cannot be read is tried as it is.
void refuse_what_preloading_does_not_reach(fs::path program, const Preloaded& library)
{
    constexpr int most_interpreters = 5; // that the kernel follows
    for (int i = 0; i < most_interpreters; ++i) {
        refuse_privileges(program, library);
        std::ifstream file(program, std::ios::binary);
        std::array<char, 4> begin {};
        if (fs::is_directory(program) || !file.read(begin.data(), begin.size()))
            return;
        const std::string_view magic(begin.data(), begin.size());
        if (magic == ELFMAG) {
            refuse_foreign_and_static(program, library, file);
            return;
        }
        if (magic.substr(0, 2) != "#!")
            return;
        file.seekg(2);
        std::string line;
        std::getline(file, line);
        std::istringstream words(line);
        std::string interpreter;
        if (!(words >> interpreter))
            return;
        program = interpreter;
    }
}

} // namespace

void set_environment(const char* name, const std::string& value)
{
    setenv(name, value.c_str(), 1); // NOLINT(concurrency-mt-unsafe): there are no other threads
}

void preload(const Preloaded& library, char** program)
{
    if (const auto file = find_program(program[0]))
        refuse_what_preloading_does_not_reach(*file, library);

    std::string preloaded = find(library).string();
    if (preloaded.find_first_of(" :") != std::string::npos)
        throw std::runtime_error(
            fmt::format("cannot preload '{}': the dynamic linker takes no path with a space or a colon", preloaded));
    if (const std::string others = environment("LD_PRELOAD"); !others.empty())
        preloaded += ":" + others;
    set_environment("LD_PRELOAD", preloaded);
}

} // namespace emulator
