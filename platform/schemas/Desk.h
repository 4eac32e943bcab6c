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

/// Where a document refers to another.
struct Reference {
    std::string base;
    long line = 0, column = 0;
};

/// Which elements schemas have been named for: what stands outside of them isn't to be judged.
class Bound {
public:
    /// Those that an element names count unless they couldn't be had.
    void enter(const xercesc::Attributes& attributes, bool had);
    void leave() { inside_.pop_back(); }
    bool inside() const { return !inside_.empty() && inside_.back(); }

private:
    std::vector<bool> inside_;
};

/// What the library asks and tells.
class Desk : public xercesc::DefaultHandler, public xercesc::XMLEntityResolver {
public:
    explicit Desk(Sources& sources) : sources_(sources) {}
    std::vector<Fault> faults;
    bool boundAlone = false; ///< only what stands in elements that schemas are named for is judged

    void add(Fault fault);
    /// Whether the document type has a default for an attribute that `complaint` finds missing.
    bool isGiven(const std::string& complaint) const;

    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* identifier) override;
    xercesc::InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override;
    void warning(const xercesc::SAXParseException& told) override;
    void error(const xercesc::SAXParseException& told) override;
    void fatalError(const xercesc::SAXParseException& told) override;
    void resetErrors() override {}

    // What was told before one of these is about the element concerned.
    void startElement(const XMLCh* const, const XMLCh* const, const XMLCh* const,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* const, const XMLCh* const, const XMLCh* const) override;
    void endDocument() override { settle(true); }
    void setDocumentLocator(const xercesc::Locator* const locator) override { locator_ = locator; }
    void startDTD(const XMLCh* const, const XMLCh* const, const XMLCh* const systemId) override;
    void attributeDecl(const XMLCh* const, const XMLCh* const name, const XMLCh* const, const XMLCh* const,
                       const XMLCh* const value) override;

private:
    static xercesc::InputSource* source(const std::string& bytes, const std::string& place);
    xercesc::InputSource* schemaAt(const Reference& from, const std::string& location, bool ofXml);
    xercesc::InputSource* leftOut(const Reference& from, const std::string& entity);
    xercesc::InputSource* missing(const Reference& from, const std::string& place,
                                  const std::string& complaint);
    void addMissing(const Reference& from, const std::string& message);
    void settle(bool judged);
    Reference here() const;

    Sources& sources_;
    Bound bound_;
    bool notHad_ = false; ///< what the next element names
    const xercesc::Locator* locator_ = nullptr;
    std::vector<Fault> waiting_;  ///< until it is known which element they are about
    std::set<std::string> given_; ///< attributes with a default
    std::set<std::string> missing_;
};

/// The library, ready for use: nothing goes to the net from here.
void StartLibrary();
/// What a reader makes of elements that no schema is named for.
enum class Unbound {
    Fault,
    Nothing,          ///< in a document without a document type
    NothingBesideType ///< in one with a document type, of which the entities count
};
/// A reader that checks by schemas; it asks and tells the desk. `pool` may be null.
std::unique_ptr<xercesc::SAX2XMLReaderImpl> MakeReader(Desk& desk, Unbound unbound = Unbound::Fault,
                                                       xercesc::XMLGrammarPool* pool = nullptr);
/// Runs what may throw the library's exceptions; what they tell is a fault of the desk. Throws
/// std::bad_alloc.
void Tell(Desk& desk, const std::string& place, const std::function<void()>& act);

} // namespace schemas
