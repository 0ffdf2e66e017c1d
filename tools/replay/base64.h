// Base64 (RFC 4648, padded), for embedding the contact sheet in the report as a data URI.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plovix_replay {

std::string Base64Encode(const std::vector<uint8_t>& data);

}  // namespace plovix_replay
