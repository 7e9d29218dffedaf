// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

// Repairs what random changes break in a drawing file, so that the reader does not stop there.
namespace fuzz {

//! If the preview section has moved, adapts the header's address and the table's entries.
void repairAddresses(std::uint8_t *data, std::size_t size);

//! Gives every chunk of every PNG its right checksum, as far as the chunks' lengths are valid.
void repairPngChecksums(std::uint8_t *data, std::size_t size);

} // namespace fuzz
