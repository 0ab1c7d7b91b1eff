// Looking through the addresses of a list, for the verdict on a call: it must cost little beside the work itself.
#pragma once

#include <cstdint>

#include "frame_lanes.hpp"

// The lowest and the highest of `count` addresses.
SMX_DECLARE_LANES(void, list_bounds, const Address *list, int count, Address &low, Address &high)
// The distance of each of at least two addresses from the one before it, or 0 if it is not the same everywhere.
SMX_DECLARE_LANES(Address, list_step, const Address *list, int count)
// Does every address but the first lie at least `gap` bytes behind the one before it?
SMX_DECLARE_LANES(bool, list_ascends, const Address *list, int count, Address gap)
// Does no object of one list meet the same one of the other? The extents are those of the objects from their addresses.
SMX_DECLARE_LANES(bool, lists_apart, const Address *a, const Address *b, int count, Address extent_a, Address extent_b)
// Does every address lie at least `extent` bytes from the one before it?
SMX_DECLARE_LANES(bool, list_neighbours_apart, const Address *list, int count, Address extent)
// Does each of `width` addresses (a group) lie at least `extent` bytes from all others? Only the lower 32 bits of them
// are looked at, so that addresses about a multiple of 4 GB apart may seem to meet, too.
SMX_DECLARE_LANES(bool, list_group_apart, const Address *list, int width, Address extent)
// Ahead of a group of a plan that is watched: may it be loaded before it is stored? Groups are loaded chunk by chunk
// across their objects. The processor does not see that large ones are a stream through memory, so they are touched
// from end to end first.
SMX_DECLARE_LANES(bool, begin_group, const LanePlan &plan, int first, int width)
