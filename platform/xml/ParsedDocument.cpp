// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/ParsedDocument.h"
#include "platform/xml/DocumentStore.h"
#include "platform/xml/ErrorReport.h"
#include "platform/xml/Loader.h"
#include "platform/xml/PathWalk.h"
#include "platform/xml/XPathTree.h"
#include <algorithm>
#include <exception>
#include <optional>

namespace xml {

namespace {

/// The failure that no place in the text is to blame for.
ParseError MemoryError(const QString& url) {
    ParseError error;
    error.errorCode = kErrorMemory;
    error.url = url;
    try {
        error.reason = QStringLiteral("There is not enough memory to take this text apart.\r\n");
    } catch (const std::exception&) {
        error.reason.clear(); // the code alone must do
    }
    return error;
}

} // namespace

ParsedDocument::ParsedDocument() = default;
ParsedDocument::~ParsedDocument() = default;

bool ParsedDocument::loadXML(const QString& text, const QString& url, const Step& step, Prefixes prefixes) {
    std::optional<text::LongText> pieces;
    try {
        pieces.emplace(text);
    } catch (const std::exception&) {
        storage_.reset();
        error_ = MemoryError(url);
        return false;
    }
    return loadXML(*pieces, url, step, prefixes);
}

bool ParsedDocument::loadXML(const text::LongText& text, const QString& url, const Step& step,
                             Prefixes prefixes) {
    storage_.reset();
    error_ = {};
    std::exception_ptr ofStep;
    try {
        auto storage = std::make_unique<Storage>();
        Loader loader(*storage, step, prefixes);
        const auto complaint = loader.load(text);
        ofStep = loader.failureOfStep();
        if (!complaint && !ofStep)
            storage_ = std::move(storage);
        else if (complaint && complaint->code == kErrorStopped)
            error_.errorCode = kErrorStopped; // the place means nothing then
        else if (complaint)
            error_ = MakeParseError(text.toString(), *complaint, url);
    } catch (const std::exception&) {
        error_ = MemoryError(url);
    }
    if (ofStep)
        std::rethrow_exception(ofStep);
    return error_.errorCode == 0;
}

bool ParsedDocument::wasStopped() const {
    return error_.errorCode == kErrorStopped;
}

Node ParsedDocument::document() const {
    return storage_ ? Node(this, 0) : Node();
}

Node ParsedDocument::documentElement() const {
    return storage_ ? Node(this, storage_->rootId) : Node();
}

std::size_t ParsedDocument::nodeCount() const {
    return storage_ ? storage_->nodeCount - 1 : 0;
}

Losses ParsedDocument::losses() const {
    return storage_ ? storage_->losses : Losses();
}

const QString& ParsedDocument::name(std::uint32_t nameId) const {
    return storage_->names[nameId];
}

std::uint32_t ParsedDocument::nameCount() const {
    return storage_ ? static_cast<std::uint32_t>(storage_->names.size()) : 0;
}

text::CompactView ParsedDocument::view(text::StringPool::Ref ref) const {
    return storage_ ? storage_->texts.view(ref) : text::CompactView();
}

std::vector<Node> ParsedDocument::selectNodes(const QString& xpath, QString* error) const {
    QString complaint;
    std::vector<Node> nodes;
    try {
        if (storage_) {
            PathWalk walk(*storage_, xpath);
            const PathWalk::Ids ids = walk.run();
            nodes.reserve(ids.size());
            for (const std::uint32_t id : ids)
                nodes.push_back(Node(this, id));
            complaint = walk.complaint();
        }
    } catch (const std::exception&) {
        nodes.clear();
        complaint = QStringLiteral("There is not enough memory to search this document.");
    }
    if (error)
        *error = complaint;
    return nodes;
}

Node ParsedDocument::selectSingleNode(const QString& xpath, QString* error) const {
    const std::vector<Node> nodes = selectNodes(xpath, error);
    return nodes.empty() ? Node() : nodes.front();
}

} // namespace xml
