// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/schemas/Check.h"
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>
#include <xercesc/framework/XMLGrammarPool.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>

namespace schemas {

std::string Utf8(const XMLCh* text);

/// Thrown to end a check that has found enough.
struct Enough {};

/// What the library asks and tells.
class Desk : public xercesc::DefaultHandler, public xercesc::XMLEntityResolver {
public:
    explicit Desk(Sources& sources) : sources_(sources) {}
    std::vector<Fault> faults;

    void add(Fault fault);

    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* identifier) override;
    xercesc::InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override;
    void warning(const xercesc::SAXParseException& told) override;
    void error(const xercesc::SAXParseException& told) override;
    void fatalError(const xercesc::SAXParseException& told) override;
    void resetErrors() override {}

private:
    static xercesc::InputSource* source(const std::string& bytes, const std::string& place);
    xercesc::InputSource* leftOut(const std::string& base, const std::string& entity);
    xercesc::InputSource* missing(const std::string& base, const std::string& place,
                                  const std::string& complaint);

    Sources& sources_;
    std::set<std::string> missing_;
};

/// The library, ready for use: nothing goes to the net from here.
void StartLibrary();
/// What a reader makes of elements that no schema is named for.
enum class Unbound { Fault, Nothing };
/// A reader that checks by schemas; it asks and tells the desk. `pool` may be null.
std::unique_ptr<xercesc::SAX2XMLReaderImpl> MakeReader(Desk& desk, Unbound unbound = Unbound::Fault,
                                                       xercesc::XMLGrammarPool* pool = nullptr);
/// Runs what may throw the library's exceptions; what they tell is a fault of the desk. Throws
/// std::bad_alloc.
void Tell(Desk& desk, const std::string& place, const std::function<void()>& act);

} // namespace schemas
