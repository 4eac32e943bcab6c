// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace bench {

/// The yardstick of a check: what the schema library takes for the same file by itself, from its start and
/// from the disk, in milliseconds. A schema is loaded as a grammar, any other document is parsed against the
/// schemas that it names; all with full checking, and the net left alone.
double LibraryAlone(const std::string& path, bool isSchema);

} // namespace bench
