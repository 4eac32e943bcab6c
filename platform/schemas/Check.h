// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/schemas/Sources.h"
#include <string>
#include <vector>

namespace schemas {

/// What is to be checked.
struct Request {
    bool schema = false; ///< the text is a schema; else a document that names its schemas itself
    std::string place;   ///< of its file or its address; empty for a document without one
    std::string text;    ///< UTF-16, little endian, whatever its declaration says
    Sources sources;
};

/// What a finding is; the numbers are those of the answer.
enum class Kind : long {
    Fault = 0,
    Missing = 1, ///< something couldn't be had: what else is found may follow from that
    Note = 2     ///< worth knowing, and no fault
};

/// A finding. The line and the column (in 16-bit units) count from 1 and are those behind the tag concerned;
/// 0 for a fault without a place.
struct Fault {
    std::string document; ///< UTF-8; as a place is written in the request
    long line = 0, column = 0;
    std::string message;
    Kind kind = Kind::Fault;
};

/// All faults, in the order in which they were found, up to a thousand and one: the last of so many tells
/// that there are more than a thousand. `request.sources.wanted` is filled. Throws std::bad_alloc.
std::vector<Fault> Check(Request& request);

} // namespace schemas
