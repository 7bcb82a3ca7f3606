// The networks that enabled LIFs with addresses are on, and the masks of all networks that an instance knows.
#pragma once

#include "emulator/model/state.h"

namespace emulator {

bool is_on_a_subnet(const Lif& lif);

// Whether another LIF may be on one, or have more addresses on IPv6 networks: the networks are listed among the routes.
bool has_room_for_a_subnet(const Instance& instance);
bool has_room_for_subnets6(const Instance& instance, std::size_t addresses);

// Before and after a LIF's address, mask or state changes, or around its life.
void join_subnet(Instance& instance, Lif& lif);
void leave_subnet(Instance& instance, const Lif& lif);

// The first LIF that is on the network; null if none is.
const Lif* lif_on_subnet(Instance& instance, std::uint32_t dest, std::uint32_t mask);

// Whether an address is on the network of any enabled LIF.
bool is_on_any_subnet(Instance& instance, std::uint32_t address);
bool is_on_any_subnet(const Instance& instance, const Ipv6Address& address);

void count_mask(Instance& instance, std::uint32_t mask);
void discount_mask(Instance& instance, std::uint32_t mask);

} // namespace emulator
