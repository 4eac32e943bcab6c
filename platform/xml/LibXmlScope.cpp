// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/LibXmlScope.h"
#include <libxml/globals.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <mutex>

namespace xml {

namespace {

xmlParserInputPtr LoadNothing(const char*, const char*, xmlParserCtxtPtr) {
    return nullptr;
}

void Ignore(void*, xmlErrorPtr) {}

void PrintNothing(void*, const char*, ...) {}

/// The loader of external entities is one for the whole process; the library has no other place for it.
void SetUpOnce() {
    static std::once_flag once;
    std::call_once(once, [] {
        xmlInitParser();
        xmlSetExternalEntityLoader(LoadNothing);
    });
}

} // namespace

LibXmlScope::LibXmlScope(xmlStructuredErrorFunc handler, void* context) {
    SetUpOnce();
    handler_ = xmlStructuredError;
    context_ = xmlStructuredErrorContext;
    xmlSetStructuredErrorFunc(context, handler ? handler : Ignore);
    // A few messages of the path engine go round the structured handler.
    printer_ = xmlGenericError;
    printerContext_ = xmlGenericErrorContext;
    xmlSetGenericErrorFunc(nullptr, PrintNothing);
}

LibXmlScope::~LibXmlScope() {
    xmlSetStructuredErrorFunc(context_, handler_);
    xmlSetGenericErrorFunc(printerContext_, printer_);
}

} // namespace xml
