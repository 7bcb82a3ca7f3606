#include "emulator/door/launch.h"

#include "emulator/faults/faults.h"
#include "emulator/state/state_file.h"

#include <array>
#include <cstdlib>
#include <elf.h>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace emulator {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view library_name = "liblumozeph-emulator.so." LUMOZEPH_EMULATOR_SOVERSION;

// Beside the emulator's program, as it was built or as it was installed.
fs::path find_library()
{
    const fs::path own = fs::read_symlink("/proc/self/exe").parent_path();
    for (const char* folder : {"door", LUMOZEPH_LIBRARIES_FROM_PROGRAM}) {
        std::error_code error;
        if (fs::path library = fs::canonical(own / folder / library_name, error); !error)
            return library;
    }
    throw std::runtime_error(fmt::format("cannot find '{}'", library_name));
}

std::string environment(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): there are no other threads
    return value != nullptr ? value : "";
}

void set_environment(const char* name, const std::string& value)
{
    setenv(name, value.c_str(), 1); // NOLINT(concurrency-mt-unsafe): there are no other threads
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

// The dynamic linker preloads nothing into programs that gain privileges.
void refuse_privileges(const fs::path& program)
{
    struct stat status = {};
    if (stat(program.c_str(), &status) != 0)
        return;
    const bool user_changes = (status.st_mode & S_ISUID) != 0 && status.st_uid != getuid();
    const bool group_changes =
        (status.st_mode & (S_ISGID | S_IXGRP)) == (S_ISGID | S_IXGRP) && status.st_gid != getgid();
    const bool gains_capabilities = getuid() != 0 && getxattr(program.c_str(), "security.capability", nullptr, 0) > 0;
    if (user_changes || group_changes || gains_capabilities)
        throw std::runtime_error(
            fmt::format("cannot run '{}' in process: it runs with other privileges", program.string()));
}

std::string refusal(const fs::path& program, std::string_view why)
{
    return fmt::format("cannot run '{}' in process: {}; without --in-process it can", program.string(), why);
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

void refuse_foreign_and_static(const fs::path& program, std::istream& file)
{
    static const Elf64_Ehdr own = [] {
        std::ifstream self("/proc/self/exe", std::ios::binary);
        return read_record<Elf64_Ehdr>(self, 0).value();
    }();
    const auto header = read_record<Elf64_Ehdr>(file, 0);
    if (!header || header->e_ident[EI_CLASS] != own.e_ident[EI_CLASS] || header->e_machine != own.e_machine)
        throw std::runtime_error(fmt::format(
            "cannot run '{}' in process: it is of another architecture than the emulator", program.string()));
    for (unsigned i = 0; i < header->e_phnum; ++i)
        if (const auto segment =
                read_record<Elf64_Phdr>(file, header->e_phoff + std::uint64_t {i} * sizeof(Elf64_Phdr));
            segment && segment->p_type == PT_INTERP)
            return;
    throw std::runtime_error(refusal(program, "it is linked statically"));
}

// A program that cannot be read is tried as it is.
void refuse_what_preloading_does_not_reach(fs::path program)
{
    constexpr int most_interpreters = 5; // that the kernel follows
    for (int i = 0; i < most_interpreters; ++i) {
        refuse_privileges(program);
        std::ifstream file(program, std::ios::binary);
        std::array<char, 4> begin {};
        if (fs::is_directory(program) || !file.read(begin.data(), begin.size()))
            return;
        const std::string_view magic(begin.data(), begin.size());
        if (magic == ELFMAG) {
            refuse_foreign_and_static(program, file);
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

int run_in_process(char** program, const Inside& inside, int (*execute)(char** program))
{
    if (const auto file = find_program(program[0]))
        refuse_what_preloading_does_not_reach(*file);

    std::string preloaded = find_library().string();
    if (preloaded.find_first_of(" :") != std::string::npos)
        throw std::runtime_error(
            fmt::format("cannot preload '{}': the dynamic linker takes no path with a space or a colon", preloaded));
    if (const std::string others = environment("LD_PRELOAD"); !others.empty())
        preloaded += ":" + others;
    set_environment("LD_PRELOAD", preloaded);
    if (inside.settings.strictness == Strictness::Lenient)
        set_environment("LUMOZEPH_EMULATOR_LENIENT", "1");
    if (!inside.state.empty()) {
        Module module(inside.settings);
        load_state(module, inside.state); // which is refused here and not in the program
        set_environment("LUMOZEPH_EMULATOR_STATE", fs::absolute(inside.state));
    }
    if (inside.settings.clock == Clock::Manual)
        set_environment("LUMOZEPH_EMULATOR_CLOCK", "manual");
    if (!inside.faults.empty()) {
        Faults faults;
        for (const std::string& fault : inside.faults)
            faults.add(fault); // as above
        set_environment("LUMOZEPH_EMULATOR_FAULTS", fmt::format("{}", fmt::join(inside.faults, " ")));
        set_environment("LUMOZEPH_EMULATOR_SEED", std::to_string(inside.seed));
    }
    return execute(program);
}

} // namespace emulator
