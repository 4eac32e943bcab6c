// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/AttributeRules.h"
#include "platform/xml/DocumentStore.h"
#include "platform/xml/EntityBudget.h"
#include "platform/xml/ErrorReport.h"
#include "platform/xml/NameCache.h"
#include "platform/xml/NamespaceScope.h"
#include "platform/xml/TagSizeGuard.h"
#include "platform/xml/Utf8Feed.h"
#include <exception>
#include <libxml/parser.h>
#include <optional>
#include <string>
#include <vector>

namespace xml {

/// Parses one text into a store. The parser calls back event by event; the first thing that is wrong ends it.
class Loader {
public:
    Loader(DocumentStore& store, const ParsedDocument::Step& step, Prefixes prefixes)
        : store_(store), step_(step), prefixes_(prefixes), names_(store), namespaces_(store) {}

    /// The complaint, or nothing when the text was well-formed. Throws when memory runs out.
    std::optional<Complaint> load(const text::LongText& text);
    /// What the step threw, if it did; the load ended then, with a complaint.
    std::exception_ptr failureOfStep() const { return failureOfStep_; }

private:
    friend struct LoaderEvents;

    /// An element that is not closed yet (or the document).
    struct Open {
        std::uint32_t id;
        std::uint32_t lastChild;
        bool preserve;             ///< white space counts here
        bool hasText = false;      ///< more than blanks
        bool respaced = false;     ///< has a text whose blanks indenting would change
        std::uint32_t layouts = 0; ///< dropped blanks with a line end between two children
    };

    void parse(qsizetype length);
    int read(char* buffer, int room);
    void takeStep();
    bool inTag() const;
    bool isDeclarationTooLong();

    // Events. They may throw; LoaderEvents catches before the library's own frames.
    void startElement(const xmlChar* name, const xmlChar** attributes);
    void endElement();
    void characters(const xmlChar* text, int length);
    void cdata(const xmlChar* text, int length);
    void comment(const xmlChar* text);
    void instruction(const xmlChar* target, const xmlChar* data);
    void documentType(const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId);
    void declareAttribute(const xmlChar* element, const xmlChar* attribute, int type, const xmlChar* value);
    void declareEntity(const xmlChar* name, int type, const xmlChar* publicId, const xmlChar* systemId,
                       xmlChar* content);
    void declareElement(const xmlChar* name);
    void declareNotation(const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId);
    void declareOther(); ///< what needs no keeping
    void declareUnparsed(const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId,
                         const xmlChar* notation);
    xmlEntityPtr entity(const xmlChar* name);
    xmlEntityPtr parameterEntity(const xmlChar* name);
    void libraryError(const xmlError& error);

    std::uint32_t numberOf(const xmlChar* name);
    void checkNames();
    std::uint32_t addNode(NodeType type, std::uint32_t nameId);
    void addValueNode(NodeType type, std::uint32_t nameId, const char* value, std::size_t length);
    void addAttributes(std::uint32_t id, std::uint32_t nameId, const xmlChar** attributes);
    void addDefaults(const ElementRules& rules);
    void enterScope(std::uint32_t nameId);
    bool checksPrefixes() const { return prefixes_ == Prefixes::Declared; }
    void checkForm(std::uint32_t nameId);
    void checkColon(const xmlChar* name);
    bool inEntity() const;
    void failByName(int code, const QString& name);
    text::StringPool::Ref attributeValue(const ElementRules* rules, std::uint32_t nameId, const char* value);
    enum class Follows { Nothing, Element, Leaf, Section };
    void flushText(Follows next);
    bool comesBack(Follows next) const;
    void noteDropped(Open& parent);
    void notePreserved(Open& parent, bool blank);
    void noteReference();
    bool inDocumentType() const { return context_->inSubset != 0; }
    bool isJustDeclared(const xmlChar* name);

    unsigned long byte() const;
    void fail(int code, const QString& name = {});
    void failNow(Complaint complaint);

    DocumentStore& store_;
    const ParsedDocument::Step& step_;
    const Prefixes prefixes_;
    static constexpr qsizetype kUnitsPerStep = 250'000;
    qsizetype nextStep_ = kUnitsPerStep; ///< the unit at which the step is due
    qsizetype length_ = 0;               ///< of the text
    std::exception_ptr failureOfStep_;
    NameCache names_;
    NamespaceScope namespaces_;
    AttributeRules rules_;
    EntityBudget budget_;
    ComparedAttributes compared_;
    Utf8Feed* feed_ = nullptr;
    TagSizeGuard* tags_ = nullptr;
    xmlParserCtxt* context_ = nullptr;
    std::vector<Open> open_;
    std::vector<Attribute> scratch_; ///< the attributes of the element at hand
    std::vector<std::uint32_t>
        writtenIn_; ///< by attribute name: the element that it was last met in; see addDefaults
    unsigned long referenceByte_ = 0; ///< where the last reference in the text itself ended
    std::string text_;                ///< the text that is not yet a node
    std::string declared_;            ///< the entity that was declared last, until it was asked for once
    unsigned long declarationByte_ =
        0; ///< where the last declaration or long string in the document type ended
    std::optional<Complaint> complaint_;
    unsigned long complaintByte_ = 0; ///< where the parser stood then
    bool outOfMemory_ = false;
    bool stopped_ = false;
};

} // namespace xml
