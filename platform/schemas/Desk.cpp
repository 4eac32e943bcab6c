// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Desk.h"
#include "platform/schemas/XmlSchema.h"
#include <algorithm>
#include <new>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>

namespace schemas {

using namespace xercesc;

namespace {

constexpr std::size_t kMost = 1001; // faults of one check

Fault FaultOf(const SAXParseException& told, bool warning) {
    return {Utf8(told.getSystemId()), static_cast<long>(told.getLineNumber()),
            static_cast<long>(told.getColumnNumber()), Utf8(told.getMessage()), warning};
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

InputSource* Desk::resolveEntity(XMLResourceIdentifier* identifier) {
    if (identifier->getResourceIdentifierType() == XMLResourceIdentifier::ExternalEntity)
        return leftOut(Utf8(identifier->getBaseURI()), Utf8(identifier->getSystemId()));
    const XMLCh* given = identifier->getSchemaLocation();
    const std::string location = Utf8(given ? given : identifier->getSystemId());
    const std::string base = Utf8(identifier->getBaseURI());
    std::string place = location.empty() ? std::string() : Sources::Resolve(base, location);
    const bool ofXml = Utf8(identifier->getNameSpace()) == kXmlNamespace;
    if (location.empty() && !ofXml)
        return nullptr;
    std::string complaint = "The document has no place yet from which to look for it.";
    if (place.empty() && !ofXml)
        return missing(base, location, complaint);
    if (ofXml && (place.empty() || Sources::IsAddress(place)))
        return source(XmlNamespaceSchema(), kXmlNamespace);
    if (const auto bytes = sources_.Read(place, complaint))
        return source(*bytes, place);
    return missing(base, place, complaint);
}

InputSource* Desk::resolveEntity(const XMLCh* const, const XMLCh* const) {
    return source("", "");
}

void Desk::warning(const SAXParseException& told) {
    add(FaultOf(told, true));
}
void Desk::error(const SAXParseException& told) {
    add(FaultOf(told, false));
}
void Desk::fatalError(const SAXParseException& told) {
    add(FaultOf(told, false));
}

InputSource* Desk::source(const std::string& bytes, const std::string& place) {
    auto* copy = new XMLByte[bytes.size() + 1];
    std::copy(bytes.begin(), bytes.end(), copy);
    const TranscodeFromStr name(reinterpret_cast<const XMLByte*>(place.data()), place.size(), "UTF-8");
    return new MemBufInputSource(copy, bytes.size(), name.str(), true);
}

// Told once, however often it is asked for.
InputSource* Desk::missing(const std::string& base, const std::string& place, const std::string& complaint) {
    if (missing_.insert(place).second)
        add({base, 0, 0, "The schema document \"" + place + "\" can't be read: " + complaint, true});
    return nullptr;
}

// A document from anywhere could have any file read that way. What would stand there can't be judged.
InputSource* Desk::leftOut(const std::string& base, const std::string& entity) {
    if (missing_.insert(entity).second)
        add({base, 0, 0,
             "The external entity \"" + entity +
                 "\" isn't read, so it can't be told whether the document is valid.",
             true});
    return source("", "");
}

void StartLibrary() {
    XMLPlatformUtils::Initialize();
    delete XMLPlatformUtils::fgNetAccessor; // nothing goes to the net from here
    XMLPlatformUtils::fgNetAccessor = nullptr;
}

namespace {

// What stands outside the elements that name schemas isn't to be judged by them. The library sees to that
// unless it takes notice of a document type, of which it needs the entities alone.
void LetUnboundElementsBe(SAX2XMLReaderImpl& reader) {
    reader.setProperty(XMLUni::fgXercesScannerName, const_cast<XMLCh*>(XMLUni::fgSGXMLScanner));
    reader.setFeature(XMLUni::fgXercesDynamic, true);
}

} // namespace

std::unique_ptr<SAX2XMLReaderImpl> MakeReader(Desk& desk, Unbound unbound, XMLGrammarPool* pool) {
    auto reader = std::make_unique<SAX2XMLReaderImpl>(XMLPlatformUtils::fgMemoryManager, pool);
    reader->setFeature(XMLUni::fgXercesDynamic, false);
    if (unbound == Unbound::Nothing)
        LetUnboundElementsBe(*reader);
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
        desk.faults.push_back({place, 0, 0, Utf8(fault.getMessage()), false});
    } catch (const XMLException& fault) {
        desk.faults.push_back({place, 0, 0, Utf8(fault.getMessage()), false});
    }
}

} // namespace schemas
