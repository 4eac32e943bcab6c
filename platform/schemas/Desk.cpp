// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Desk.h"
#include "platform/schemas/XmlSchema.h"
#include <algorithm>
#include <cstring>
#include <new>
#include <utility>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

namespace schemas {

using namespace xercesc;

namespace {

constexpr std::size_t kMost = 1001; // faults of one check

Fault FaultOf(const SAXParseException& told, Kind kind) {
    return {Utf8(told.getSystemId()), static_cast<long>(told.getLineNumber()),
            static_cast<long>(told.getColumnNumber()), Utf8(told.getMessage()), kind};
}

} // namespace

std::string Utf8(const XMLCh* text) {
    if (!text || !*text)
        return {};
    const TranscodeToStr bytes(text, "UTF-8");
    return {reinterpret_cast<const char*>(bytes.str()), bytes.length()};
}

void Desk::add(Fault fault) {
    faults.push_back(std::move(fault));
    if (faults.size() >= kMost)
        throw Enough();
}

bool Desk::isGiven(const std::string& complaint) const {
    return std::any_of(given_.begin(), given_.end(), [&complaint](const std::string& name) {
        return complaint.find('\'' + name + '\'') != std::string::npos;
    });
}

InputSource* Desk::resolveEntity(XMLResourceIdentifier* identifier) {
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

InputSource* Desk::resolveEntity(const XMLCh* const, const XMLCh* const) {
    return source("", "");
}

InputSource* Desk::schemaAt(const Reference& from, const std::string& location, bool ofXml) {
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

void Desk::warning(const SAXParseException& told) {
    add(FaultOf(told, Kind::Note));
}
void Desk::error(const SAXParseException& told) {
    if (boundAlone)
        waiting_.push_back(FaultOf(told, Kind::Fault));
    else
        add(FaultOf(told, Kind::Fault));
}
void Desk::fatalError(const SAXParseException& told) {
    settle(true);
    add(FaultOf(told, Kind::Fault));
}

void Desk::startElement(const XMLCh* const, const XMLCh* const, const XMLCh* const,
                        const Attributes& attributes) {
    bound_.enter(attributes, !std::exchange(notHad_, false));
    settle(bound_.inside());
}

void Desk::endElement(const XMLCh* const, const XMLCh* const, const XMLCh* const) {
    settle(bound_.inside());
    bound_.leave();
}

void Desk::startDTD(const XMLCh* const, const XMLCh* const, const XMLCh* const systemId) {
    if (systemId && *systemId)
        leftOut(here(), Utf8(systemId));
}

// The library doesn't put them in where it judges by a schema.
void Desk::attributeDecl(const XMLCh* const, const XMLCh* const name, const XMLCh* const, const XMLCh* const,
                         const XMLCh* const value) {
    if (value && given_.empty())
        addMissing(here(), "The document type has default values of attributes. They aren't put in, so it "
                           "can't be told whether the document is valid.");
    if (value)
        given_.insert(Utf8(name));
}

void Desk::settle(bool judged) {
    std::vector<Fault> told;
    told.swap(waiting_);
    for (Fault& fault : told) {
        if (judged)
            add(std::move(fault));
    }
}

Reference Desk::here() const {
    if (!locator_)
        return {};
    return {Utf8(locator_->getSystemId()), static_cast<long>(locator_->getLineNumber()),
            static_cast<long>(locator_->getColumnNumber())};
}

void Desk::addMissing(const Reference& from, const std::string& message) {
    add({from.base, from.line, from.column, message, Kind::Missing});
}

InputSource* Desk::source(const std::string& bytes, const std::string& place) {
    auto* copy = new XMLByte[bytes.size() + 1];
    std::copy(bytes.begin(), bytes.end(), copy);
    const TranscodeFromStr name(reinterpret_cast<const XMLByte*>(place.data()), place.size(), "UTF-8");
    return new MemBufInputSource(copy, bytes.size(), name.str(), true);
}

// Told once, however often it is asked for.
InputSource* Desk::missing(const Reference& from, const std::string& place, const std::string& complaint) {
    notHad_ = locator_ && from.base == here().base;
    if (missing_.insert(place).second)
        addMissing(from, "The schema document \"" + place + "\" can't be read: " + complaint);
    return nullptr;
}

// A document from anywhere could have any file read that way. What would stand there can't be judged.
InputSource* Desk::leftOut(const Reference& from, const std::string& entity) {
    if (missing_.insert(entity).second)
        addMissing(from, "The external entity \"" + entity +
                             "\" isn't read, so it can't be told whether the document is valid.");
    return source("", "");
}

void StartLibrary() {
    XMLPlatformUtils::Initialize();
    delete XMLPlatformUtils::fgNetAccessor; // nothing goes to the net from here
    XMLPlatformUtils::fgNetAccessor = nullptr;
}

namespace {

/// Leaves out what is about the document type, by which nothing is checked here.
class Reader : public SAX2XMLReaderImpl {
public:
    Reader(const Desk& desk, XMLGrammarPool* pool)
        : SAX2XMLReaderImpl(XMLPlatformUtils::fgMemoryManager, pool), desk_(desk) {}
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

// What stands outside the elements that name schemas isn't to be judged by them. The library sees to that
// itself where it needn't take notice of a document type.
void LetUnboundElementsBe(SAX2XMLReaderImpl& reader, Desk& desk, bool documentType) {
    if (!documentType) {
        reader.setProperty(XMLUni::fgXercesScannerName, const_cast<XMLCh*>(XMLUni::fgSGXMLScanner));
        reader.setFeature(XMLUni::fgXercesDynamic, true);
        return;
    }
    desk.boundAlone = true;
    reader.setContentHandler(&desk);
    reader.setLexicalHandler(&desk);
    reader.setDeclarationHandler(&desk);
}

} // namespace

void Bound::enter(const Attributes& attributes, bool had) {
    const auto names = [&attributes](const char* local) {
        const TranscodeFromStr name(reinterpret_cast<const XMLByte*>(local), std::strlen(local), "UTF-8");
        return attributes.getIndex(SchemaSymbols::fgURI_XSI, name.str()) >= 0;
    };
    inside_.push_back(inside() || (had && (names("schemaLocation") || names("noNamespaceSchemaLocation"))));
}

std::unique_ptr<SAX2XMLReaderImpl> MakeReader(Desk& desk, Unbound unbound, XMLGrammarPool* pool) {
    auto reader = std::make_unique<Reader>(desk, pool);
    reader->setFeature(XMLUni::fgXercesDynamic, false);
    if (unbound != Unbound::Fault)
        LetUnboundElementsBe(*reader, desk, unbound == Unbound::NothingBesideType);
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
    return reader;
}

void Tell(Desk& desk, const std::string& place, const std::function<void()>& act) {
    try {
        act();
    } catch (const OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (const SAXParseException&) { // told already
    } catch (const Enough&) {
    } catch (const SAXException& fault) {
        desk.faults.push_back({place, 0, 0, Utf8(fault.getMessage()), Kind::Fault});
    } catch (const XMLException& fault) {
        desk.faults.push_back({place, 0, 0, Utf8(fault.getMessage()), Kind::Fault});
    }
}

} // namespace schemas
