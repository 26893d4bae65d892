// SHA-256 of a text, in small hexadecimal letters, for comparing with digests.
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

std::string Sha256(std::string_view text);

} // namespace quorvane
