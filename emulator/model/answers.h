// Answers that commands of several chapters give.
#pragma once

#include "emulator/model/exchange.h"

namespace emulator {

// Without a reply: what is asked for changes nothing that the model keeps.
int accepted(Exchange& exchange);

// The same for commands that name an instance, or a bridge.
int accepted_for_instance(Exchange& exchange);
int accepted_for_bridge(Exchange& exchange);

// To a set or delete whose caller may want to know more than success: a 32-bit zero and the word.
int done(Exchange& exchange);

} // namespace emulator
