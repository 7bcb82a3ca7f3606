// The descriptors of the device in this process.
#pragma once

#include <array>

namespace emulator {

enum class Node
{
    Normal,
    Upgrade
};

// What an open makes, and copies of its descriptor share.
struct OpenFile
{
    Node node = Node::Normal;
    int flags = 0;
    int descriptors = 0; // how many there are of it; 0: unused
};

// Where functions return an int, it is what the kernel would return: an errno value below 0 is a failure.
class Descriptors
{
public:
    // The kernel gives no such numbers: a process may have fewer descriptors even where all limits are raised as far as
    // they usually go. Every system call that gets one therefore says EBADF.
    static constexpr int first = 1 << 30;
    // The usual limit of a process's descriptors.
    static constexpr int most = 1024;

    static constexpr bool in_range(int number) { return number >= first && number < first + most; }

    int open(Node node, int flags);
    int close(int number);
    // The lowest free number that is not below the second one. Of the flags, O_CLOEXEC counts.
    int duplicate(int number, int at_least, int flags);
    // The second number is in range, and is closed before if it is open.
    int duplicate_to(int number, int replaced, int flags);
    // Those from the first to the last number, both included.
    void close_all(unsigned first_number, unsigned last_number);
    void close_all_on_exec(unsigned first_number, unsigned last_number);

    // Null if it is not open.
    OpenFile* file(int number);
    // FD_CLOEXEC or 0, of a descriptor that is open.
    int flags(int number) const { return at(number).flags; }
    void set_flags(int number, int flags);

private:
    struct Descriptor
    {
        OpenFile* file = nullptr; // null: free
        int flags = 0;
    };

    Descriptor& at(int number) { return descriptors_[static_cast<std::size_t>(number - first)]; }
    const Descriptor& at(int number) const { return descriptors_[static_cast<std::size_t>(number - first)]; }
    int lowest_free(int at_least) const;
    void occupy(int number, OpenFile& file, int flags);
    template <class Action>
    void for_each_open(unsigned first_number, unsigned last_number, Action action);

    std::array<Descriptor, most> descriptors_;
    std::array<OpenFile, most> files_;
};

} // namespace emulator
