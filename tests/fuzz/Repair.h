// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

// What a chance change breaks in a drawing file is mended here, so that the reader gets past it.
namespace fuzz {

//! Where the preview section has moved, has the header's address and the table's entries follow it.
void repairAddresses(std::uint8_t *data, std::size_t size);

//! Gives every chunk of every PNG its right checksum, as far as the chunks' lengths lead.
void repairPngChecksums(std::uint8_t *data, std::size_t size);

} // namespace fuzz
