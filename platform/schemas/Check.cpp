// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Check.h"
#include "platform/schemas/XmlSchema.h"
#include <memory>
#include <new>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/validators/common/Grammar.hpp>

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

/// What the library asks and tells.
class Desk : public DefaultHandler, public XMLEntityResolver {
public:
    explicit Desk(Sources& sources) : sources_(sources) {}
    std::vector<Fault> faults;

    void add(Fault fault) {
        faults.push_back(std::move(fault));
        if (faults.size() >= kMost)
            throw Enough();
    }

    InputSource* resolveEntity(XMLResourceIdentifier* identifier) override {
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
    InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override { return source("", ""); }

    void warning(const SAXParseException& told) override { add(faultOf(told, true)); }
    void error(const SAXParseException& told) override { add(faultOf(told, false)); }
    void fatalError(const SAXParseException& told) override { add(faultOf(told, false)); }
    void resetErrors() override {}

private:
    static Fault faultOf(const SAXParseException& told, bool warning) {
        return {Utf8(told.getSystemId()), static_cast<long>(told.getLineNumber()),
                static_cast<long>(told.getColumnNumber()), Utf8(told.getMessage()), warning};
    }

    static InputSource* source(const std::string& bytes, const std::string& place) {
        auto* copy = new XMLByte[bytes.size() + 1];
        std::copy(bytes.begin(), bytes.end(), copy);
        const TranscodeFromStr name(reinterpret_cast<const XMLByte*>(place.data()), place.size(), "UTF-8");
        return new MemBufInputSource(copy, bytes.size(), name.str(), true);
    }

    // Told once, however often it is asked for.
    InputSource* missing(const std::string& base, const std::string& place, const std::string& complaint) {
        if (missing_.insert(place).second)
            add({base, 0, 0, "The schema document \"" + place + "\" can't be read: " + complaint, true});
        return nullptr;
    }

    // A document from anywhere could have any file read that way. What would stand there can't be judged.
    InputSource* leftOut(const std::string& base, const std::string& entity) {
        if (missing_.insert(entity).second)
            add({base, 0, 0,
                 "The external entity \"" + entity +
                     "\" isn't read, so it can't be told whether the document is valid.",
                 true});
        return source("", "");
    }

    Sources& sources_;
    std::set<std::string> missing_;
};

bool DeclaresEntities(const std::string& text) {
    static const std::string kOpener("<\0!\0E\0N\0T\0I\0T\0Y\0", 16);
    return text.find(kOpener) != std::string::npos;
}

// What stands outside the elements that name schemas isn't to be judged by them. The library sees to that
// unless it takes notice of a document type, of which it needs the entities alone.
void LetUnboundElementsBe(SAX2XMLReaderImpl& reader) {
    reader.setProperty(XMLUni::fgXercesScannerName, const_cast<XMLCh*>(XMLUni::fgSGXMLScanner));
    reader.setFeature(XMLUni::fgXercesDynamic, true);
}

std::unique_ptr<SAX2XMLReaderImpl> MakeReader(Desk& desk, const Request& request) {
    auto reader = std::make_unique<SAX2XMLReaderImpl>();
    reader->setFeature(XMLUni::fgXercesDynamic, false);
    if (!request.schema && !DeclaresEntities(request.text))
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
        desk.faults.push_back({request.place, 0, 0, Utf8(fault.getMessage()), false});
    } catch (const XMLException& fault) {
        desk.faults.push_back({request.place, 0, 0, Utf8(fault.getMessage()), false});
    }
    return desk.faults;
}

} // namespace schemas
