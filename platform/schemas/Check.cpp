// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Check.h"
#include "platform/schemas/Desk.h"
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/validators/common/Grammar.hpp>

namespace schemas {

namespace {

using namespace xercesc;

bool HasDocumentType(const std::string& text) {
    static const std::string kOpener("<\0!\0D\0O\0C\0T\0Y\0P\0E\0", 18);
    return text.find(kOpener) != std::string::npos;
}

Unbound UnboundIn(const Request& request) {
    if (request.schema)
        return Unbound::Fault;
    return HasDocumentType(request.text) ? Unbound::NothingBesideType : Unbound::Nothing;
}

void Run(const Request& request, Desk& desk) {
    const TranscodeFromStr place(reinterpret_cast<const XMLByte*>(request.place.data()), request.place.size(),
                                 "UTF-8");
    MemBufInputSource text(reinterpret_cast<const XMLByte*>(request.text.data()), request.text.size(),
                           place.str(), false);
    text.setEncoding(XMLUni::fgUTF16LEncodingString);
    const std::unique_ptr<SAX2XMLReaderImpl> reader = MakeReader(desk, UnboundIn(request));
    if (request.schema)
        reader->loadGrammar(text, Grammar::SchemaGrammarType, true);
    else
        reader->parse(text);
}

} // namespace

std::vector<Fault> Check(Request& request) {
    StartLibrary();
    Desk desk(request.sources);
    Tell(desk, request.place, [&] { Run(request, desk); });
    return desk.faults;
}

} // namespace schemas
