// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <map>
#include <optional>
#include <set>
#include <string>

namespace schemas {

/// A document that was fetched from the net.
struct Fetched {
    std::string address; ///< where it was found in the end: another one than was asked for, if it has moved
    std::string bytes;
    std::string complaint; ///< why it couldn't be had; empty where it could
};

/// The documents that a check may read: regular files, and what was fetched from addresses beforehand.
/// Nothing is fetched here.
class Sources {
public:
    std::map<std::string, Fetched> fetched; ///< by the address, or the place, that was asked for

    /// Where a location leads that stands in the document at `base`: an address, or a path without "." and
    /// "..". Empty where a relative location stands in a document without a place.
    static std::string Resolve(const std::string& base, const std::string& location);
    static bool IsAddress(const std::string& place);

    /// The bytes at a place; nothing where there are none to be had, which `complaint` tells in a sentence.
    /// An address that would have to be fetched is one of `wanted` then. `place` becomes the one where they
    /// were found.
    std::optional<std::string> Read(std::string& place, std::string& complaint);
    std::set<std::string> wanted;
    std::set<std::string> read; ///< files that were
};

} // namespace schemas
