// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace schemas {

inline constexpr char kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";
/// A schema of the attributes that the xml prefix stands for: half of all schemas import it, from an address.
const char* XmlNamespaceSchema();

} // namespace schemas
