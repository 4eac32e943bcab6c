// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <libxml/tree.h>

namespace xml {

/// The namespace that stands for a prefix in the XPath engine. It knows that of "xml" by itself.
inline QByteArray PrefixSpace(const QByteArray& prefix) {
    return prefix == "xml" ? QByteArray(reinterpret_cast<const char*>(XML_XML_NAMESPACE))
                           : "prefix:" + prefix;
}

} // namespace xml
