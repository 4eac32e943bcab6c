// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/Loader.h"
#include "platform/xml/LibXmlScope.h"
#include "platform/xml/LoaderEvents.h"
#include "platform/xml/XmlDeclaration.h"
#include <libxml/parserInternals.h>
#include <new>

namespace xml {

namespace {

/// The beginning of a text with all of its declaration, if it has one.
QString Head(const text::LongText& text) {
    constexpr qsizetype kBeginning = 16;
    const QString beginning = text.mid(0, kBeginning);
    if (!beginning.contains(QStringLiteral("<?xml")))
        return beginning;
    const qsizetype end = text.indexOf(u"?>", 0, Qt::CaseSensitive);
    return end < 0 ? text.toString() : text.mid(0, std::max(end + 2, kBeginning));
}

/// Frees a parser context with the entities that it gathered.
struct FreeContext {
    void operator()(xmlParserCtxt* context) const {
        xmlDoc* entities = context->myDoc;
        context->myDoc = nullptr;
        if (entities)
            xmlFreeDoc(entities);
        xmlFreeParserCtxt(context);
    }
};

} // namespace

std::optional<Complaint> Loader::load(const text::LongText& text) {
    if (text.isEmpty())
        return Complaint{XML_ERR_DOCUMENT_EMPTY};
    const QString head = Head(text);
    XmlDeclaration declaration = ReadXmlDeclaration(head);
    if (declaration.complaint)
        return declaration.complaint;
    open_.push_back(Open{0, 0, false});
    if (declaration.present) {
        const QByteArray data = declaration.data.toUtf8();
        addValueNode(PROCESSING_INSTRUCTION, store_.nameId(QStringLiteral("xml")), data.constData(),
                     static_cast<std::size_t>(data.size()));
    }
    Utf8Feed feed(text, declaration.end);
    feed_ = &feed;
    TagSizeGuard tags(text);
    tags_ = &tags;
    budget_.start(static_cast<std::size_t>(text.size()));
    length_ = text.size();
    compared_.start(static_cast<std::size_t>(text.size()));
    parse(text.size());
    return complaint_;
}

void Loader::parse(qsizetype length) {
    const LibXmlScope scope(LoaderEvents::Error, this);
    xmlSAXHandler handlers = LoaderEvents::Handlers();
    const std::unique_ptr<xmlParserCtxt, FreeContext> context(
        xmlCreateIOParserCtxt(&handlers, this, LoaderEvents::Read, nullptr, this, XML_CHAR_ENCODING_UTF8));
    if (!context)
        throw std::bad_alloc();
    context_ = context.get();
    xmlCtxtUseOptions(context_, XML_PARSE_HUGE | XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
    xmlParseDocument(context_);
    if (outOfMemory_)
        throw std::bad_alloc();
    if (complaint_ && complaint_->place == 0)
        complaint_->place = feed_->place(complaintByte_);
    const qsizetype bad = feed_->badPlace();
    if (bad >= 0 && (!complaint_ || complaint_->place >= bad))
        complaint_ = Complaint{XML_ERR_INVALID_CHAR, bad};
    if (!complaint_ && (!context_->wellFormed || store_.rootId == 0))
        complaint_ = Complaint{kErrorUnexpected, length};
    context_ = nullptr;
}

} // namespace xml
