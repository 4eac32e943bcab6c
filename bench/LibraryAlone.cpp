// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/LibraryAlone.h"
#include <chrono>
#include <xercesc/framework/LocalFileInputSource.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/validators/common/Grammar.hpp>

namespace bench {

using namespace xercesc;

double LibraryAlone(const std::string& path, bool isSchema) {
    const auto start = std::chrono::steady_clock::now();
    XMLPlatformUtils::Initialize();
    delete XMLPlatformUtils::fgNetAccessor;
    XMLPlatformUtils::fgNetAccessor = nullptr;
    double taken = 0;
    {
        SAX2XMLReaderImpl reader;
        reader.setFeature(XMLUni::fgSAX2CoreValidation, true);
        reader.setFeature(XMLUni::fgXercesSchema, true);
        reader.setFeature(XMLUni::fgXercesSchemaFullChecking, true);
        reader.setFeature(XMLUni::fgXercesHandleMultipleImports, true);
        reader.setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        DefaultHandler faults;
        reader.setErrorHandler(&faults);
        XMLCh* name = XMLString::transcode(path.c_str());
        const LocalFileInputSource file(name);
        if (isSchema)
            reader.loadGrammar(file, Grammar::SchemaGrammarType, true);
        else
            reader.parse(file);
        XMLString::release(&name);
        taken = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
    XMLPlatformUtils::Terminate();
    return taken;
}

} // namespace bench
