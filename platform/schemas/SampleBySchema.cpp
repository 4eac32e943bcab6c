// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/SampleBySchema.h"
#include "platform/schemas/Desk.h"
#include <algorithm>
#include <cstring>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/validators/common/Grammar.hpp>

namespace schemas {

namespace {

using namespace xercesc;

/// UTF-16 in memory as a source of the library, under a place.
class Units {
public:
    Units(const void* bytes, std::size_t size, const std::string& place)
        : place_(reinterpret_cast<const XMLByte*>(place.data()), place.size(), "UTF-8"),
          source_(static_cast<const XMLByte*>(bytes), size, place_.str(), false) {
        source_.setEncoding(XMLUni::fgUTF16LEncodingString);
    }
    const InputSource& Source() const { return source_; }

private:
    TranscodeFromStr place_;
    MemBufInputSource source_;
};

/// The schema of a request in a pool, and documents checked by it.
class Grammars {
public:
    explicit Grammars(Request& request) : desk_(request.sources) {
        StartLibrary();
        pool_ = std::make_unique<XMLGrammarPoolImpl>(XMLPlatformUtils::fgMemoryManager);
        const std::unique_ptr<SAX2XMLReaderImpl> reader = MakeReader(desk_, Unbound::Fault, pool_.get());
        const Units schema(request.text.data(), request.text.size(), request.place);
        Tell(desk_, request.place,
             [&] { reader->loadGrammar(schema.Source(), Grammar::SchemaGrammarType, true); });
        pool_->lockPool();
    }
    Grammars(const Grammars&) = delete;
    Grammars& operator=(const Grammars&) = delete;

    /// A document without a place can't be sent to look for others.
    std::vector<Fault> FaultsOf(const void* bytes, std::size_t size) {
        Sources none;
        Desk desk(none);
        const std::unique_ptr<SAX2XMLReaderImpl> reader = MakeReader(desk, Unbound::Fault, pool_.get());
        reader->setFeature(XMLUni::fgXercesSchemaFullChecking, false); // the schema's, which is done
        reader->setFeature(XMLUni::fgXercesUseCachedGrammarInParse, true);
        reader->setFeature(XMLUni::fgXercesLoadSchema, false);
        const Units document(bytes, size, {});
        Tell(desk, {}, [&] { reader->parse(document.Source()); });
        return desk.faults;
    }
    std::vector<Fault> OwnFaults() const {
        std::vector<Fault> faults;
        std::copy_if(desk_.faults.begin(), desk_.faults.end(), std::back_inserter(faults),
                     [](const Fault& one) { return one.kind == Kind::Fault; });
        return faults;
    }
    XMLGrammarPool& Pool() { return *pool_; }

private:
    Desk desk_;
    std::unique_ptr<XMLGrammarPool> pool_;
};

std::u16string Wide(const std::string& text) {
    const TranscodeFromStr wide(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "UTF-8");
    return {wide.str(), wide.length()};
}

} // namespace

SampleAnswer MakeSampleBySchema(Request& request, const samples::Wish& wish) {
    Grammars grammars(request);
    if (const std::vector<Fault> faults = grammars.OwnFaults(); !faults.empty())
        return {{}, {"The schema has faults, so no document can be made by it: " + faults.front().message}};
    const samples::Outcome made = samples::MakeSample(grammars.Pool(), wish, [&](const std::u16string& text) {
        const std::vector<Fault> faults = grammars.FaultsOf(text.data(), text.size() * sizeof(char16_t));
        return faults.empty() ? std::u16string() : Wide(faults.front().message);
    });
    SampleAnswer answer{made.text, {}};
    for (const std::u16string& remark : made.remarks)
        answer.remarks.push_back(Utf8(remark.c_str()));
    return answer;
}

std::vector<Fault> CheckDocuments(Request& request, const std::vector<std::string>& documents) {
    Grammars grammars(request);
    std::vector<Fault> all = grammars.OwnFaults();
    for (const std::string& document : documents) {
        const std::vector<Fault> faults = grammars.FaultsOf(document.data(), document.size());
        all.insert(all.end(), faults.begin(), faults.end());
    }
    return all;
}

} // namespace schemas
