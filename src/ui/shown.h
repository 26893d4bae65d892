// Texts on their way from the core's UTF-8 into widgets, which all show them plain.
#pragma once

#include <QString>

#include <string_view>

namespace quorvane {

inline QString Shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// For a window's title, where "[*]" would stand for a mark of its own.
inline QString ShownAsTitle(std::string_view text) { return Shown(text).replace("[*]", "[*][*]"); }

} // namespace quorvane
