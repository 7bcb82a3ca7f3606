#include "emulator/supervisor/link.h"

#include "emulator/supervisor/failure.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/uio.h>

namespace emulator {

namespace {

struct Head
{
    Word word;
    int number;
};

constexpr std::size_t longest_text = 1000;

// The room for one descriptor beside a message.
struct Control
{
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> bytes {};
};

} // namespace

std::pair<Link, Link> Link::pair()
{
    std::array<int, 2> ends {};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
        fail("cannot make a socket");
    return {Link(Descriptor(ends[0])), Link(Descriptor(ends[1]))};
}

void Link::send(Word word, int number, std::string_view text) const
{
    Head head {word, number};
    const std::size_t length = std::min(text.size(), longest_text);
    std::array<iovec, 2> parts {{{&head, sizeof head}, {const_cast<char*>(text.data()), length}}};
    msghdr message {};
    message.msg_iov = parts.data();
    message.msg_iovlen = parts.size();
    while (sendmsg(descriptor(), &message, MSG_NOSIGNAL) < 0 && errno == EINTR)
        continue;
}

void Link::pass(Word word, int passed, int number) const
{
    Head head {word, number};
    iovec part {&head, sizeof head};
    Control control;
    msghdr message {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes.data();
    message.msg_controllen = control.bytes.size();
    cmsghdr* const header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &passed, sizeof passed);
    while (sendmsg(descriptor(), &message, MSG_NOSIGNAL) < 0 && errno == EINTR)
        continue;
}

std::optional<Message> Link::receive() const
{
    Head head {};
    std::array<char, longest_text> text {};
    std::array<iovec, 2> parts {{{&head, sizeof head}, {text.data(), text.size()}}};
    Control control;
    msghdr received {};
    received.msg_iov = parts.data();
    received.msg_iovlen = parts.size();
    received.msg_control = control.bytes.data();
    received.msg_controllen = control.bytes.size();
    ssize_t length = 0;
    while ((length = recvmsg(descriptor(), &received, MSG_CMSG_CLOEXEC)) < 0 && errno == EINTR)
        continue;
    if (length < static_cast<ssize_t>(sizeof head))
        return std::nullopt;
    Message message {head.word, head.number, {text.data(), static_cast<std::size_t>(length) - sizeof head}, {}};
    if (const cmsghdr* const header = CMSG_FIRSTHDR(&received);
        header != nullptr && header->cmsg_level == SOL_SOCKET && header->cmsg_type == SCM_RIGHTS) {
        int passed = -1;
        std::memcpy(&passed, CMSG_DATA(header), sizeof passed);
        message.passed = Descriptor(passed);
    }
    return message;
}

} // namespace emulator
