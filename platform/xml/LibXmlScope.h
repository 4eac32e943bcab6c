// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <libxml/xmlerror.h>

namespace xml {

/// While it lives the parser library is set up, prints nothing, and opens no file or address on this thread.
class LibXmlScope {
public:
    /// `handler` is told of each error, with `context`; by default errors go unheard.
    explicit LibXmlScope(xmlStructuredErrorFunc handler = nullptr, void* context = nullptr);
    ~LibXmlScope();
    LibXmlScope(const LibXmlScope&) = delete;
    LibXmlScope& operator=(const LibXmlScope&) = delete;

private:
    xmlStructuredErrorFunc handler_;
    void* context_;
    xmlGenericErrorFunc printer_;
    void* printerContext_;
};

} // namespace xml
