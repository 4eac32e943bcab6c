// SPDX-License-Identifier: GPL-3.0-or-later
// What a schema window offers to insert at a node, by choosing it.
#include "schema/Diagnostics.h"
#include "tests/nodes/ListDesk.h"
#include <QSet>

namespace {

struct Row {
    const char* nodes;
    const char* offered; ///< captions
};
constexpr Row kRows[] = {
    {"schema", "include import redefine annotation complexType simpleType group attributeGroup "
               "element attribute notation"},
    {"element", "annotation complexType simpleType unique key keyref"},
    {"complexType", "annotation simpleContent complexContent group all choice sequence attribute "
                    "attributeGroup anyAttribute"},
    {"simpleType", "annotation restriction list union"},
    {"attribute", "annotation simpleType"},
    {"sequence choice", "annotation element group all choice sequence any"},
    {"all", "annotation element"},
    {"restriction", "annotation simpleType minExclusive minInclusive maxExclusive maxInclusive "
                    "totalDigits fractionDigits length minLength maxLength enumeration whiteSpace pattern "
                    "attribute attributeGroup anyAttribute group all choice sequence"},
    {"extension", "annotation group all choice sequence attribute attributeGroup anyAttribute"},
    {"redefine", "annotation complexType simpleType group attributeGroup"},
    {"simpleContent complexContent", "annotation restriction extension"},
    {"attributeGroup", "annotation attribute attributeGroup anyAttribute"},
    {"unique key keyref", "annotation selector field"},
    {"group", "annotation all choice sequence"},
    {"list union include import selector field anyAttribute any notation", "annotation"},
    {"annotation", "appInfo documentation"},
    {"appinfo documentation appInfo enumeration pattern Sequence", ""},
};

struct Insert : test::ListDesk {
    QString OpenWith(const QString& element) {
        const QString name = QStringLiteral("s%1.xsd").arg(++count_);
        const QString child =
            element == QStringLiteral("schema") ? QString() : QStringLiteral("<xs:%1></xs:%1>").arg(element);
        const QString text =
            QStringLiteral("<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">%1</xs:schema>");
        t.prompts.AllowAnyBox(); // a lone part of a schema is no good schema
        Open(text.arg(child).toUtf8(), name);
        Select(child.isEmpty() ? Element() : Element().Child());
        return name;
    }
    QStringList Offered() {
        QStringList captions;
        for (const auto& item : t.frame().Menu(QStringLiteral("mnuXSD")).Items) {
            if (item->Visible() && item->Usable())
                captions << item->Caption();
        }
        captions.sort();
        return captions;
    }
    controls::MenuItem& Entry(const QString& caption) {
        for (const auto& item : t.frame().Menu(QStringLiteral("mnuXSD")).Items) {
            if (item->Caption() == caption)
                return *item;
        }
        throw std::runtime_error("no such entry");
    }
    void Choose(const char* caption) { t.ChooseMenu(Entry(QLatin1String(caption)).Name); }

private:
    int count_ = 0;
};

TEST_F(Insert, EachNodeOffersItsEntriesAndEachOfThemAddsItsElement) {
    int chosen = 0;
    for (const Row& row : kRows) {
        for (const QString& element : QString::fromUtf8(row.nodes).split(u' ')) {
            SCOPED_TRACE(element.toStdString());
            OpenWith(element);
            QStringList expected = QString::fromUtf8(row.offered).split(u' ', Qt::SkipEmptyParts);
            expected.sort();
            EXPECT_EQ(Offered(), expected);
            EXPECT_TRUE(Entry(QStringLiteral("(none)")).Visible());
            EXPECT_FALSE(Entry(QStringLiteral("(none)")).Enabled());
            for (const QString& caption : expected) {
                const QString address = w->txtXPath.Text();
                const controls::TreeNode node = w->tvXML.SelectedItem();
                const int before = node.Children();
                Choose(caption.toUtf8().constData());
                ++chosen;
                const bool nothing = caption == QStringLiteral("choice");
                EXPECT_EQ(node.Children(), before + (nothing ? 0 : 1)) << caption.toStdString();
                if (!nothing) {
                    EXPECT_EQ(node.LastChild().Text(), QStringLiteral("xs:") + caption);
                    EXPECT_EQ(node.LastChild().Tag(), QString());
                    EXPECT_TRUE(w->rtxtXML.Text().contains(QStringLiteral("<xs:%1>").arg(caption)));
                }
                Select(node);
                EXPECT_EQ(w->txtXPath.Text(), address);
            }
        }
    }
    EXPECT_GT(chosen, 100);
}

TEST_F(Insert, InTheListTheRowInHandTakesTheElement) {
    t.prompts.AllowAnyBox();
    Open("<schema xmlns='http://www.w3.org/2001/XMLSchema'><!--c--><complexType name='T'/></schema>",
         QStringLiteral("a.xsd"));
    ClickRow(2);
    EXPECT_TRUE(Offered().contains(QStringLiteral("sequence")));
    EXPECT_FALSE(Offered().contains(QStringLiteral("element")));
    Choose("sequence");
    EXPECT_EQ(Xml(Element().LastChild()), "<complexType name=\"T\"><sequence></sequence></complexType>");
    EXPECT_EQ(Rows().Item(Rows().SelectedItem()).Text, QStringLiteral("sequence"));
    EXPECT_EQ(Rows().LabelEditRow(), 0) << "its name is settled";
    ClickRow(Rows().Count()); // an attribute stands for the element on show
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("complexType"));
    EXPECT_TRUE(Offered().contains(QStringLiteral("anyAttribute")));
    Choose("anyAttribute");
    EXPECT_EQ(Element().LastChild().LastChild().Text(), QStringLiteral("anyAttribute"));
}

TEST_F(Insert, AFaultInATextThatIsReadFirstDoesntLeadToAnotherNode) {
    Open("<schema xmlns='http://www.w3.org/2001/XMLSchema'><complexType name='T'/>"
         "<element name='a' type='string'/></schema>",
         QStringLiteral("a.xsd"));
    Select(Element().Child());
    w->rtxtXML.UserReplaced(w->rtxtXML.Text().indexOf(QStringLiteral("string")), 6,
                            QStringLiteral("nothing")); // as a search replaces it, beside the tree
    Choose("attribute");
    t.FinishChecks();
    EXPECT_EQ(Xml(Element().Child()), "<complexType name=\"T\"><attribute></attribute></complexType>");
    EXPECT_TRUE(t.prompts.boxes.empty());
    EXPECT_EQ(schema::DiagnosticsOf(*w).lvDiagnostics.Count(), 2) << "and the attribute has no name";
}

TEST_F(Insert, OnlyADocumentWithoutARootElementIsOfferedASchemaElement) {
    t.ChooseMenu(QStringLiteral("mnuNewschema"));
    w = &t.window();
    EXPECT_EQ(Offered(), QStringList());
    Select(Element());
    t.ChooseMenu(QStringLiteral("mnuDeleteP"));
    Select(Root());
    EXPECT_EQ(Offered(), QStringList{QStringLiteral("schema")});
    Choose("schema");
    EXPECT_EQ(Xml(), "<schema></schema>") << "no attributes are given to it";
}

TEST_F(Insert, NothingIsOfferedWhereTheEntriesWouldDoNothing) {
    const auto shown = [this] {
        int count = 0;
        for (const auto& item : t.frame().Menu(QStringLiteral("mnuXSD")).Items)
            count += item->Visible() ? 1 : 0;
        return count;
    };
    EXPECT_EQ(shown(), 1) << "\"(none)\" without a window";
    OpenWith(QStringLiteral("complexType"));
    EXPECT_EQ(shown(), 11);
    for (const char* tab : {"compactview", "textview", "tableview", "browserview"}) {
        w->tbsXML.Select(QLatin1String(tab));
        EXPECT_EQ(shown(), 1) << tab;
    }
    w->tbsXML.Select(QStringLiteral("listview"));
    Select(Element().Child());
    EXPECT_EQ(shown(), 11);
    t.OpenText(QStringLiteral("plain.xml"), "<element/>");
    t.ClickNode(t.window().tvXML.Nodes(1).Child());
    EXPECT_EQ(shown(), 1) << "in a document that is no schema";
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuXSD")).Enabled());
}

} // namespace
