// What recordings consist of: a header, and for each command an entry, which is followed by the command's input and its
// reply. All numbers are in the byte order of the host, as those of commands are.
#pragma once

#include "emulator/protocol/layout.h"

namespace emulator::recording {

using namespace protocol;

// Whoever changes what follows raises it.
constexpr std::uint32_t version = 1;
constexpr std::string_view magic = "lumozeph-rec";

namespace header {
inline constexpr UnterminatedText magic {"magic", 0, 12};
inline constexpr U32 version {"version", 12};
inline constexpr Layout layout = fields_in<16, magic, version>;
} // namespace header

namespace entry {
inline constexpr U32 length {"length", 0}; // with input and reply
inline constexpr U32 number {"number", 4};
inline constexpr U64 begun {"begun", 8}; // in nanoseconds since 1970
inline constexpr U64 took {"took", 16};  // in nanoseconds
inline constexpr U32 process {"process", 24};
inline constexpr U32 thread {"thread", 28};
inline constexpr Text program {"program", 32, 16};
inline constexpr U32 in_len {"inLen", 48};
inline constexpr U64 in_ptr {"inPtr", 52};
inline constexpr U32 room {"room", 60}; // the envelope's outLen
inline constexpr U64 out_ptr {"outPtr", 64};
inline constexpr U32 error {"errno", 72};
inline constexpr U32 out_len {"outLen", 76}; // what is said in the end
inline constexpr U32 input_size {"inputSize", 80};
inline constexpr U32 reply_size {"replySize", 84};
inline constexpr U8 readable {"readable", 88}; // 0: not even the envelope; 1: not the input; 2: both
inline constexpr Flag answered {"answered", 89};
inline constexpr Layout layout = fields_in<96, length, number, begun, took, process, thread, program, in_len, in_ptr,
    room, out_ptr, error, out_len, input_size, reply_size, readable, answered>;
} // namespace entry

} // namespace emulator::recording
