// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/RootDeclarations.h"
#include "core/model/NodeContent.h"
#include <QSet>

namespace schema {

namespace {

// Looks at each name of the document once.
class Walk {
public:
    explicit Walk(const xml::ParsedDocument& document) : document_(document) {
        for (std::uint32_t id = 0; id < document.nameCount(); ++id)
            names_.push_back(NameOf(document.name(id)));
    }

    SchemaOutline run() {
        visitChildren(document_.document());
        SchemaOutline outline{{}, prefix_};
        for (const Declaration& one : declarations_) {
            if (!isReferredTo(one.name))
                outline.rootDeclarations.push_back(one.node);
        }
        return outline;
    }

private:
    struct Name {
        QString prefix;
        bool schema = false, element = false; // the local part, in any case
        bool ref = false;                     // as it is written
    };
    struct Declaration {
        xml::Node node;
        QString name;
    };

    static Name NameOf(const QString& written) {
        Name name;
        const QString local = m_tvXML::GetPureName(written, name.prefix).toLower();
        name.schema = local == QStringLiteral("schema");
        name.element = local == QStringLiteral("element");
        name.ref = written == QStringLiteral("ref");
        return name;
    }

    // Without recursion: a document may be deeper than the stack.
    void visitChildren(xml::Node top) {
        xml::Node node = top.firstChild();
        std::vector<bool> firstTaken{false};
        while (node) {
            if (node.nodeType() == xml::ELEMENT) {
                if (!firstTaken.back())
                    prefix_ = names_[node.nameId()].prefix;
                firstTaken.back() = true;
                visit(node);
            }
            if (const xml::Node child = node.firstChild()) {
                node = child;
                firstTaken.push_back(false);
                continue;
            }
            while (!node.nextSibling()) {
                node = node.parentNode();
                firstTaken.pop_back();
                if (node == top)
                    return;
            }
            node = node.nextSibling();
        }
    }

    void visit(xml::Node element) {
        for (int i = 0; i < element.attributeCount(); ++i) {
            if (names_[element.attributes()[i].nameId].ref)
                addReference(document_.view(element.attributes()[i].value).toString());
        }
        const xml::Node parent = element.parentNode();
        const bool global = parent.nodeType() == xml::ELEMENT && names_[parent.nameId()].schema;
        if (!global || !names_[element.nameId()].element)
            return;
        const QString name = AttributeOf(element, QStringLiteral("name"));
        if (!name.isEmpty() && AttributeOf(element, QStringLiteral("substitutionGroup")).isEmpty())
            declarations_.push_back({element, name});
    }

    void addReference(const QString& written) {
        references_.insert(written);
        QString prefix;
        if (std::exchange(anyReference_, true))
            localParts_.insert(m_tvXML::GetPureName(written, prefix));
    }

    // A name with a quote can't be asked for.
    bool isReferredTo(const QString& name) const {
        return references_.contains(name) || localParts_.contains(name) || name.contains(u'"');
    }

    const xml::ParsedDocument& document_;
    std::vector<Name> names_;
    QString prefix_;
    std::vector<Declaration> declarations_;
    QSet<QString> references_, localParts_;
    bool anyReference_ = false;
};

} // namespace

SchemaOutline OutlineOf(const xml::ParsedDocument& document) {
    return Walk(document).run();
}

QString AttributeOf(xml::Node element, const QString& name) {
    const xml::ParsedDocument& document = *element.ownerDocument();
    for (int i = 0; i < element.attributeCount(); ++i) {
        if (document.name(element.attributes()[i].nameId) == name)
            return document.view(element.attributes()[i].value).toString();
    }
    return {};
}

} // namespace schema
