// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/InferSchema.h"
#include "core/edit/Guard.h"
#include "core/edit/Transaction.h"
#include "core/model/Attributes.h"
#include "core/model/DomToTree.h"
#include "core/model/Frame.h"
#include "core/model/NodeKind.h"
#include "core/model/Parse.h"
#include "core/model/Serialise.h"
#include "platform/controls/TreeCursor.h"
#include "schema/BindSchema.h"
#include <QScopedValueRollback>
#include <QSet>
#include <algorithm>
#include <vector>

namespace schema {

namespace {

using controls::TreeCursor;
using text::StringPool;

const QString kLineEnd = QStringLiteral("\r\n");
constexpr qsizetype kDeepestIndent = 100;

/// What the siblings in front of a node are called, whatever they are: a text counts by what the tree shows
/// of it, an instruction by its target. Elements stand here by name and not by number, so that a million
/// records cost nothing; of texts only those that an element behind them is called.
class NamesBefore {
public:
    /// Whether there is one of that name; from here on there is.
    bool HaveSameNameNodeBefore(TreeCursor element) {
        if (element.textId() == last_ || ids_.contains(element.textId()))
            return true;
        last_ = element.textId();
        ids_.insert(last_);
        return takes(element.text().toString());
    }
    void pass(TreeCursor other) {
        if (m_tvXML::GetKeyType(other) != m_tvXML::kText) {
            takes(other.text().toString());
            return;
        }
        if (!std::exchange(collected_, true))
            collectNamesBehind(other);
        if (!behind_.isEmpty() && behind_.contains(other.text().toString()))
            takes(other.text().toString());
    }

private:
    bool takes(const QString& name) {
        const qsizetype before = names_.size();
        names_.insert(name);
        return names_.size() == before;
    }
    void collectNamesBehind(TreeCursor text) {
        QSet<StringPool::Ref> met;
        for (TreeCursor node = text.next(); node; node = node.next()) {
            if (m_tvXML::GetKeyType(node) != m_tvXML::kElement || met.contains(node.textId()))
                continue;
            met.insert(node.textId());
            behind_.insert(node.text().toString());
        }
    }

    StringPool::Ref last_ = 0;
    QSet<StringPool::Ref> ids_;
    QSet<QString> names_, behind_;
    bool collected_ = false;
};

// Walks without recursion: a document may be deeper than the stack.
class Writer {
public:
    QString run(TreeCursor top) {
        TreeCursor node = top.firstChild();
        levels_.emplace_back();
        while (node) {
            const bool left = opens(node);
            if (left && hasElements(node)) {
                levels_.emplace_back();
                node = node.firstChild();
                continue;
            }
            if (left)
                breakLineBehind(node);
            while (!node.next()) {
                node = node.parent();
                if (node == top)
                    return text_;
                levels_.pop_back();
                close(node);
                breakLineBehind(node);
            }
            node = node.next();
        }
        return text_;
    }

private:
    static bool isText(TreeCursor node) { return node && m_tvXML::GetKeyType(node) == m_tvXML::kText; }
    static bool hasElements(TreeCursor node) {
        return m_tvXML::GetKeyType(node) == m_tvXML::kElement && node.firstChild() &&
               m_tvXML::GetKeyType(node.firstChild()) == m_tvXML::kElement;
    }

    /// False for an element that isn't the first of its name.
    bool opens(TreeCursor node) {
        const int kind = m_tvXML::GetKeyType(node);
        if (kind == m_tvXML::kElement) {
            if (levels_.back().HaveSameNameNodeBefore(node))
                return false;
            element(node);
            return true;
        }
        levels_.back().pass(node);
        if (kind == m_tvXML::kComment)
            text_ += QStringLiteral("<!--") + node.tag().toString() + QStringLiteral("-->");
        else if (kind == m_tvXML::kInstruction && node.text() == u"xml")
            text_ += QStringLiteral("<?xml ") + node.tag().toString() + QStringLiteral("?>");
        return true;
    }

    // Thousands of names that stand thousands of levels deep would be made of tabs (quirk 166).
    QString indent() const {
        return QString(std::min(static_cast<qsizetype>(levels_.size()) - 1, kDeepestIndent), u'\t');
    }

    void element(TreeCursor node) {
        text_ += indent() + QStringLiteral("<xsd:element name=\"") + node.text().toString() + u'"';
        if (hasElements(node)) {
            text_ += QStringLiteral(">\r\n<xsd:complexType>\r\n<xsd:sequence>\r\n");
        } else if (node.tag().isEmpty()) {
            text_ += QStringLiteral("/>");
        } else {
            text_ += QStringLiteral(">\r\n") + indent() + QStringLiteral("\t<xsd:complexType>\r\n");
            ConvertToSchemaAttrElements(node);
            text_ += QStringLiteral("</xsd:complexType>\r\n</xsd:element>");
        }
    }

    void close(TreeCursor node) {
        if (!isText(node.lastChild()))
            text_ += kLineEnd + indent();
        text_ += QStringLiteral("</xsd:sequence>\r\n");
        ConvertToSchemaAttrElements(node);
        text_ += QStringLiteral("</xsd:complexType>\r\n</xsd:element>");
    }

    // The beginning of the name alone tells those of namespaces and of instances.
    void ConvertToSchemaAttrElements(TreeCursor node) {
        if (node.tag().isEmpty())
            return;
        const m_tvXML::Attributes all(node.tag().toString());
        for (const QString& name : all.names()) {
            if (!name.startsWith(QStringLiteral("xsi")) && !name.startsWith(QStringLiteral("xmlns")))
                text_ += indent() + QStringLiteral("\t<xsd:attribute name=\"") + name +
                         QStringLiteral("\" type=\"xsd:string\" use=\"required\"/>\r\n");
        }
    }

    void breakLineBehind(TreeCursor node) {
        if (!isText(node) && node.next() && !isText(node.next()))
            text_ += kLineEnd;
    }

    QString text_;
    std::vector<NamesBefore> levels_; // of the siblings that the walk is among, from the top
};

// A comment may speak of a declaration: the one that counts stands at the beginning (quirk 152).
QString WithSchemaElement(Application& app, QString declarations) {
    const QString opens = QStringLiteral("<xsd:schema xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">");
    const QString closes = QStringLiteral("\r\n</xsd:schema>");
    const QString ends = QStringLiteral("?>");
    if (declarations.startsWith(QStringLiteral("<?xml ")))
        return declarations.insert(declarations.indexOf(ends) + ends.size(), kLineEnd + opens) + closes;
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"") + app.options.Encoding +
           QStringLiteral(
               "\"?>\r\n<!-- Schema generated by Vantrel v2.0 by Orvane (https://vantrel.example/) "
               "-->\r\n") +
           opens + kLineEnd + declarations + closes;
}

/// As a document of its own is written; a text that doesn't parse stays as it is, and is reported where it is
/// opened. So does one whose indents end somewhere.
QString Laid(Application& app, const QString& text) {
    const mXMLEdit::Parsed parsed = mXMLEdit::Parse(app, text);
    if (!parsed.good() || text.contains(kLineEnd + QString(kDeepestIndent, u'\t')))
        return text;
    const QString name = QStringLiteral("schema");
    controls::TreeView tree;
    tree.ImageList = app.frame().ActiveForm() ? app.frame().ActiveForm()->tvXML.ImageList : QStringList();
    const controls::TreeNode root = tree.Nodes.Add({}, 0, name, name);
    m_tvXML::XMLChildNodesToTree(app, nullptr, parsed.document->document(), name, tree);
    return m_tvXML::GetTreeNodesXML(root, QStringLiteral("\t"));
}

bool WantsBinding(Application& app) {
    return app.services.prompts.MsgBox(QStringLiteral("Do you want to assign schema to this XML file?"),
                                       services::Buttons::YesNo,
                                       services::Icon::Question) == services::Answer::Yes;
}

// The name in hand is the document's meanwhile, as its nodes are written. Behind it the path is told of the
// schema again, which is in front.
void Bind(DocumentWindow& document, DocumentWindow& schemaWindow) {
    const QString name = document.app.CurrentFileName;
    {
        const QScopedValueRollback inHand(document.app.CurrentFileName, document.Caption);
        ApplySchema(document, name);
    }
    edit::TellPathAgain(schemaWindow);
    edit::DoTree(schemaWindow);
}

} // namespace

QString GetTreeNodesXMLAndConvertToSchemaLocal(const controls::TreeView& tree) {
    return tree.Nodes.Count() == 0 ? QString() : Writer().run(TreeCursor(tree.Nodes(1)));
}

void GenerateSchema(DocumentWindow& window) {
    edit::Guarded(window, "GenerateSchema", [&] {
        Application& app = window.app;
        if (!GetXMLRootNode(window.tvXML))
            return;
        const QString declarations = GetTreeNodesXMLAndConvertToSchemaLocal(window.tvXML);
        if (declarations.isEmpty()) {
            app.services.prompts.MsgBox(QStringLiteral("Schema is empty!"), services::Buttons::Ok);
            return;
        }
        FetchedText made(Laid(app, WithSchemaElement(app, declarations)));
        made.made = true;
        app.frame().NewSXMLFile(made, {});
        DocumentWindow* opened = app.frame().ActiveForm();
        if (opened && opened != &window && opened->kind.schema && WantsBinding(app))
            Bind(window, *opened);
    });
}

} // namespace schema
