// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/LoaderEvents.h"
#include "platform/xml/Loader.h"
#include <exception>
#include <libxml/SAX2.h>
#include <libxml/valid.h>

namespace xml {

void LoaderEvents::RunOut(Loader& loader) {
    loader.outOfMemory_ = true;
    loader.stopped_ = true;
    loader.feed_->stop();
}

template <typename Act> void LoaderEvents::Do(void* loader, Act act) {
    auto& self = *static_cast<Loader*>(loader);
    if (self.stopped_)
        return;
    try {
        act(self);
    } catch (const std::exception&) {
        RunOut(self);
    }
}

int LoaderEvents::Read(void* loader, char* buffer, int room) {
    auto& self = *static_cast<Loader*>(loader);
    try {
        return self.read(buffer, room);
    } catch (const std::exception&) {
        RunOut(self);
        return 0;
    }
}

void LoaderEvents::Error(void* loader, xmlError* error) {
    Do(loader, [=](Loader& s) { s.libraryError(*error); });
}

// The library's first generation of events is used on purpose: it gives attributes in the order of the text,
// namespace declarations among them, and leaves prefixes alone. With the mark of the second generation the
// library would insist on its element events.
xmlSAXHandler LoaderEvents::Handlers() {
    xmlSAXHandler h = {};
    h.initialized = 1;
    h.startDocument = [](void* l) { Do(l, [](Loader& s) { xmlSAX2StartDocument(s.context_); }); };
    h.startElement = [](void* l, const xmlChar* name, const xmlChar** attributes) {
        Do(l, [=](Loader& s) { s.startElement(name, attributes); });
    };
    h.endElement = [](void* l, const xmlChar*) { Do(l, [](Loader& s) { s.endElement(); }); };
    h.characters = [](void* l, const xmlChar* text, int length) {
        Do(l, [=](Loader& s) { s.characters(text, length); });
    };
    h.ignorableWhitespace = h.characters; // the same function: the library then makes no guesses about blanks
    h.cdataBlock = [](void* l, const xmlChar* text, int length) {
        Do(l, [=](Loader& s) { s.cdata(text, length); });
    };
    h.comment = [](void* l, const xmlChar* text) { Do(l, [=](Loader& s) { s.comment(text); }); };
    h.processingInstruction = [](void* l, const xmlChar* target, const xmlChar* data) {
        Do(l, [=](Loader& s) { s.instruction(target, data); });
    };
    h.internalSubset = [](void* l, const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
        Do(l, [=](Loader& s) { s.documentType(name, publicId, systemId); });
    };
    h.attributeDecl = [](void* l, const xmlChar* element, const xmlChar* attribute, int type, int,
                         const xmlChar* value, xmlEnumerationPtr choices) {
        xmlFreeEnumeration(choices);
        Do(l, [=](Loader& s) { s.declareAttribute(element, attribute, type, value); });
    };
    h.entityDecl = [](void* l, const xmlChar* name, int type, const xmlChar* publicId,
                      const xmlChar* systemId, xmlChar* content) {
        Do(l, [=](Loader& s) { s.declareEntity(name, type, publicId, systemId, content); });
    };
    h.unparsedEntityDecl = [](void* l, const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId,
                              const xmlChar* notation) {
        Do(l, [=](Loader& s) { s.declareUnparsed(name, publicId, systemId, notation); });
    };
    h.elementDecl = [](void* l, const xmlChar* name, int, xmlElementContentPtr) {
        Do(l, [=](Loader& s) { s.declareElement(name); });
    };
    h.notationDecl = [](void* l, const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
        Do(l, [=](Loader& s) { s.declareNotation(name, publicId, systemId); });
    };
    h.getEntity = [](void* l, const xmlChar* name) {
        xmlEntityPtr found = nullptr;
        Do(l, [&](Loader& s) { found = s.entity(name); });
        return found;
    };
    h.getParameterEntity = [](void* l, const xmlChar* name) {
        xmlEntityPtr found = nullptr;
        Do(l, [&](Loader& s) { found = s.parameterEntity(name); });
        return found;
    };
    return h;
}

} // namespace xml
