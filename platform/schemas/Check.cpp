// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Check.h"
#include "platform/schemas/XmlSchema.h"
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/validators/common/Grammar.hpp>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

namespace schemas {

namespace {

using namespace xercesc;

constexpr std::size_t kMost = 1001; // faults of one check

std::string Utf8(const XMLCh* text) {
    if (!text || !*text)
        return {};
    const TranscodeToStr bytes(text, "UTF-8");
    return {reinterpret_cast<const char*>(bytes.str()), bytes.length()};
}

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
    void enter(const Attributes& attributes, bool had) {
        inside_.push_back(inside() || (had && (names(attributes, "schemaLocation") ||
                                               names(attributes, "noNamespaceSchemaLocation"))));
    }
    void leave() { inside_.pop_back(); }
    bool inside() const { return !inside_.empty() && inside_.back(); }

private:
    static bool names(const Attributes& attributes, const char* local) {
        const TranscodeFromStr name(reinterpret_cast<const XMLByte*>(local), std::strlen(local), "UTF-8");
        return attributes.getIndex(SchemaSymbols::fgURI_XSI, name.str()) >= 0;
    }
    std::vector<bool> inside_;
};

/// What the library asks and tells.
class Desk : public DefaultHandler, public XMLEntityResolver {
public:
    explicit Desk(Sources& sources) : sources_(sources) {}
    std::vector<Fault> faults;
    bool boundAlone = false; ///< only what stands in elements that schemas are named for is judged

    void add(Fault fault) {
        faults.push_back(std::move(fault));
        if (faults.size() >= kMost)
            throw Enough();
    }

    /// Whether the document type has a default for an attribute that `complaint` finds missing.
    bool isGiven(const std::string& complaint) const {
        return std::any_of(given_.begin(), given_.end(), [&complaint](const std::string& name) {
            return complaint.find('\'' + name + '\'') != std::string::npos;
        });
    }

    InputSource* resolveEntity(XMLResourceIdentifier* identifier) override {
        const Locator* const locator = identifier->getLocator();
        const Reference from{Utf8(identifier->getBaseURI()),
                             locator ? static_cast<long>(locator->getLineNumber()) : 0,
                             locator ? static_cast<long>(locator->getColumnNumber()) : 0};
        if (identifier->getResourceIdentifierType() == XMLResourceIdentifier::ExternalEntity)
            return leftOut(from, Utf8(identifier->getSystemId()));
        const XMLCh* given = identifier->getSchemaLocation();
        return schemaAt(from, Utf8(given ? given : identifier->getSystemId()),
                        Utf8(identifier->getNameSpace()) == kXmlNamespace);
    }
    InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override { return source("", ""); }

    void warning(const SAXParseException& told) override { add(faultOf(told, Kind::Note)); }
    void error(const SAXParseException& told) override {
        if (boundAlone)
            waiting_.push_back(faultOf(told, Kind::Fault));
        else
            add(faultOf(told, Kind::Fault));
    }
    void fatalError(const SAXParseException& told) override {
        settle(true);
        add(faultOf(told, Kind::Fault));
    }
    void resetErrors() override {}

    // What was told before one of these is about the element concerned.
    void startElement(const XMLCh* const, const XMLCh* const, const XMLCh* const,
                      const Attributes& attributes) override {
        bound_.enter(attributes, !std::exchange(notHad_, false));
        settle(bound_.inside());
    }
    void endElement(const XMLCh* const, const XMLCh* const, const XMLCh* const) override {
        settle(bound_.inside());
        bound_.leave();
    }
    void endDocument() override { settle(true); }
    void setDocumentLocator(const Locator* const locator) override { locator_ = locator; }

    void startDTD(const XMLCh* const, const XMLCh* const, const XMLCh* const systemId) override {
        if (systemId && *systemId)
            leftOut(here(), Utf8(systemId));
    }
    // The library doesn't put them in where it judges by a schema.
    void attributeDecl(const XMLCh* const, const XMLCh* const name, const XMLCh* const, const XMLCh* const,
                       const XMLCh* const value) override {
        if (value && given_.empty())
            addMissing(here(),
                       "The document type has default values of attributes. They aren't put in, so it "
                       "can't be told whether the document is valid.");
        if (value)
            given_.insert(Utf8(name));
    }

private:
    static Fault faultOf(const SAXParseException& told, Kind kind) {
        return {Utf8(told.getSystemId()), static_cast<long>(told.getLineNumber()),
                static_cast<long>(told.getColumnNumber()), Utf8(told.getMessage()), kind};
    }

    static InputSource* source(const std::string& bytes, const std::string& place) {
        auto* copy = new XMLByte[bytes.size() + 1];
        std::copy(bytes.begin(), bytes.end(), copy);
        const TranscodeFromStr name(reinterpret_cast<const XMLByte*>(place.data()), place.size(), "UTF-8");
        return new MemBufInputSource(copy, bytes.size(), name.str(), true);
    }

    InputSource* schemaAt(const Reference& from, const std::string& location, bool ofXml) {
        if (location.empty() && !ofXml)
            return nullptr;
        std::string place = location.empty() ? std::string() : Sources::Resolve(from.base, location);
        std::string complaint = "The document has no place yet from which to look for it.";
        if (place.empty() && !ofXml)
            return missing(from, location, complaint);
        if (ofXml && (place.empty() || Sources::IsAddress(place)))
            return source(XmlNamespaceSchema(), kXmlNamespace);
        if (const auto bytes = sources_.Read(place, complaint))
            return source(*bytes, place);
        return missing(from, place, complaint);
    }

    void settle(bool judged) {
        std::vector<Fault> told;
        told.swap(waiting_);
        for (Fault& fault : told) {
            if (judged)
                add(std::move(fault));
        }
    }

    Reference here() const {
        if (!locator_)
            return {};
        return {Utf8(locator_->getSystemId()), static_cast<long>(locator_->getLineNumber()),
                static_cast<long>(locator_->getColumnNumber())};
    }

    void addMissing(const Reference& from, const std::string& message) {
        add({from.base, from.line, from.column, message, Kind::Missing});
    }

    // Told once, however often it is asked for.
    InputSource* missing(const Reference& from, const std::string& place, const std::string& complaint) {
        notHad_ = locator_ && from.base == here().base;
        if (missing_.insert(place).second)
            addMissing(from, "The schema document \"" + place + "\" can't be read: " + complaint);
        return nullptr;
    }

    // A document from anywhere could have any file read that way. What would stand there can't be judged.
    InputSource* leftOut(const Reference& from, const std::string& entity) {
        if (missing_.insert(entity).second)
            addMissing(from, "The external entity \"" + entity +
                                 "\" isn't read, so it can't be told whether the document is valid.");
        return source("", "");
    }

    Sources& sources_;
    Bound bound_;
    bool notHad_ = false; ///< what the next element names
    const Locator* locator_ = nullptr;
    std::vector<Fault> waiting_;  ///< until it is known which element they are about
    std::set<std::string> given_; ///< attributes with a default
    std::set<std::string> missing_;
};

/// Leaves out what is about the document type, by which nothing is checked here.
class Reader : public SAX2XMLReaderImpl {
public:
    explicit Reader(const Desk& desk) : desk_(desk) {}
    void error(const unsigned int code, const XMLCh* const domain, const ErrTypes type,
               const XMLCh* const text, const XMLCh* const systemId, const XMLCh* const publicId,
               const XMLFileLoc line, const XMLFileLoc column) override {
        if (type == ErrType_Warning && code != XMLErrs::XMLException_Warning)
            return;
        if (code == XMLValid::RequiredAttrNotProvided &&
            XMLString::equals(domain, XMLUni::fgValidityDomain) && desk_.isGiven(Utf8(text)))
            return;
        SAX2XMLReaderImpl::error(code, domain, type, text, systemId, publicId, line, column);
    }

private:
    const Desk& desk_;
};

bool HasDocumentType(const std::string& text) {
    static const std::string kOpener("<\0!\0D\0O\0C\0T\0Y\0P\0E\0", 18);
    return text.find(kOpener) != std::string::npos;
}

// What stands outside the elements that name schemas isn't to be judged by them. The library sees to that
// itself where it needn't take notice of a document type.
void JudgeBoundAlone(SAX2XMLReaderImpl& reader, Desk& desk, bool documentType) {
    desk.boundAlone = documentType;
    reader.setFeature(XMLUni::fgXercesDynamic, !documentType);
    if (!documentType)
        reader.setProperty(XMLUni::fgXercesScannerName, const_cast<XMLCh*>(XMLUni::fgSGXMLScanner));
}

std::unique_ptr<SAX2XMLReaderImpl> MakeReader(Desk& desk, const Request& request) {
    auto reader = std::make_unique<Reader>(desk);
    reader->setFeature(XMLUni::fgXercesDynamic, false);
    if (!request.schema)
        JudgeBoundAlone(*reader, desk, HasDocumentType(request.text));
    reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    reader->setFeature(XMLUni::fgSAX2CoreValidation, true);
    reader->setFeature(XMLUni::fgXercesSchema, true);
    reader->setFeature(XMLUni::fgXercesSchemaFullChecking, true);
    reader->setFeature(XMLUni::fgXercesHandleMultipleImports, true);
    reader->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
    reader->setFeature(XMLUni::fgXercesSkipDTDValidation, true);
    reader->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    reader->setXMLEntityResolver(&desk);
    reader->setErrorHandler(&desk);
    if (desk.boundAlone) {
        reader->setContentHandler(&desk);
        reader->setLexicalHandler(&desk);
        reader->setDeclarationHandler(&desk);
    }
    return reader;
}

void Run(const Request& request, Desk& desk) {
    const TranscodeFromStr place(reinterpret_cast<const XMLByte*>(request.place.data()), request.place.size(),
                                 "UTF-8");
    MemBufInputSource text(reinterpret_cast<const XMLByte*>(request.text.data()), request.text.size(),
                           place.str(), false);
    text.setEncoding(XMLUni::fgUTF16LEncodingString);
    const std::unique_ptr<SAX2XMLReaderImpl> reader = MakeReader(desk, request);
    if (request.schema)
        reader->loadGrammar(text, Grammar::SchemaGrammarType, true);
    else
        reader->parse(text);
}

} // namespace

std::vector<Fault> Check(Request& request) {
    XMLPlatformUtils::Initialize();
    delete XMLPlatformUtils::fgNetAccessor; // nothing goes to the net from here
    XMLPlatformUtils::fgNetAccessor = nullptr;
    Desk desk(request.sources);
    try {
        Run(request, desk);
    } catch (const OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (const SAXParseException&) { // told already
    } catch (const Enough&) {
    } catch (const SAXException& fault) {
        desk.faults.push_back({request.place, 0, 0, Utf8(fault.getMessage()), Kind::Fault});
    } catch (const XMLException& fault) {
        desk.faults.push_back({request.place, 0, 0, Utf8(fault.getMessage()), Kind::Fault});
    }
    return desk.faults;
}

} // namespace schemas
