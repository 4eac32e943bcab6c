// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Sample.h"
#include "platform/schemas/Check.h"

namespace schemas {

/// A sample by the schema of a request.
struct SampleAnswer {
    std::u16string text;              ///< empty where there is none
    std::vector<std::string> remarks; ///< UTF-8
};

/// Makes a sample that the check accepts. A schema with faults has none, which the remarks tell.
/// `request.sources.wanted` is filled. Throws std::bad_alloc.
SampleAnswer MakeSampleBySchema(Request& request, const samples::Wish& wish);

/// Checks documents by the schema of a request, whatever they name themselves; all faults, those of the
/// schema first. Throws std::bad_alloc.
std::vector<Fault> CheckDocuments(Request& request, const std::vector<std::string>& documents);

} // namespace schemas
