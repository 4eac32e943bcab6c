// SPDX-License-Identifier: GPL-3.0-or-later
// Dragging in the window: presses and moves of the mouse go in as events, and so do the drag's steps.
#include "desktop/drag/DragViews.h"
#include "tests/desktop/ShownApp.h"
#include <QDropEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>

namespace {

using desktop::DragListView;
using desktop::DragTreeView;
using desktop::TextView;
using test::ShownApp;

/// A drag keeps the release of the button for itself.
class Deaf : public QObject {
public:
    explicit Deaf(QWidget* widget) {
        if (widget)
            widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::MouseButtonRelease; }
};

struct Drag : ::testing::Test {
    ShownApp t;
    Drag() {
        t.OpenText(QStringLiteral("shop.xml"),
                   "<shop><pen colour='red' size='1'/><ink><dot/></ink><cap/></shop>");
        t.Press(Qt::Key_Down);
        t.Press(Qt::Key_Plus);
    }
    desktop::TreeWidget& Tree() { return t.Tree(); }
    QModelIndex Node(int row) { return Tree().model()->index(row, 0, Tree().model()->index(0, 0)); }
    QModelIndex Child(int row) { return Tree().model()->index(row, 0, Node(0)); }
    QModelIndex Row(int row) { return t.List().model()->index(row, 0); }
    std::string Text() {
        return t.window().rtxtXML.Text().remove(QRegularExpression("[\\r\\n\\t]")).toStdString();
    }

    void PullAt(QWidget& widget, QPoint place, const bool* began = nullptr) {
        QWindow* window = t.main->windowHandle();
        const QPoint from = widget.mapTo(t.main.get(), place);
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        for (int i = 1; i < 12 && !(began && *began); ++i)
            QTest::mouseMove(window, from + QPoint(2 * i, i));
        const Deaf keepsRelease(!began || *began ? &widget : nullptr);
        QTest::mouseRelease(window, Qt::LeftButton, {}, from);
        QCoreApplication::processEvents();
    }
    /// Presses on an item and pulls until a drag begins; `steps` carry it out. Whether one began.
    bool Pull(QAbstractItemView& view, const QModelIndex& index,
              std::function<Qt::DropAction(QDrag&)> steps) {
        bool began = false;
        const auto run = [&](QDrag& drag) {
            began = true;
            return steps(drag);
        };
        if (auto* tree = dynamic_cast<desktop::TreeWidget*>(&view))
            tree->runsDrag = run;
        else if (auto* report = dynamic_cast<DragTreeView*>(&view))
            report->runsDrag = run;
        else
            dynamic_cast<DragListView&>(view).runsDrag = run;
        PullAt(*view.viewport(), view.visualRect(index).center(), &began);
        return began;
    }

    static constexpr Qt::DropActions kOffered = Qt::CopyAction | Qt::MoveAction;
    /// Something that its program would rather have moved comes over a widget. Whether it may be dropped.
    static bool Over(QWidget& widget, QPoint place, const QMimeData& mime) {
        QDragEnterEvent enter(place, kOffered, &mime, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&widget, &enter);
        if (!enter.isAccepted())
            return false;
        QDragMoveEvent move(place, kOffered, &mime, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&widget, &move);
        return move.isAccepted();
    }
    static bool Over(QAbstractItemView& view, const QModelIndex& index, const QMimeData& mime) {
        return Over(*view.viewport(), view.visualRect(index).center(), mime);
    }
    /// What the program that it comes from is told.
    static Qt::DropAction Drop(QWidget& widget, QPoint place, const QMimeData& mime) {
        if (!Over(widget, place, mime))
            return Qt::IgnoreAction;
        QDropEvent drop(place, kOffered, &mime, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&widget, &drop);
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }
    static Qt::DropAction Drop(QAbstractItemView& view, const QModelIndex& index, const QMimeData& mime) {
        return Drop(*view.viewport(), view.visualRect(index).center(), mime);
    }
    static Qt::DropAction Cancel(QDrag&) { return Qt::IgnoreAction; }
    struct Words : QMimeData {
        explicit Words(const char* text) { setText(QString::fromUtf8(text)); }
    };
};

// --- out of the tree and the list --------------------------------------------------------------------------

TEST_F(Drag, ANodeIsPulledOntoAnotherOneAndIsTextToOtherPrograms) {
    const bool began = Pull(Tree(), Child(0), [&](QDrag& drag) {
        EXPECT_EQ(drag.mimeData()->text().toStdString(), "<pen colour=\"red\" size=\"1\"></pen>");
        EXPECT_FALSE(Over(Tree(), Child(0), *drag.mimeData())) << "onto itself";
        EXPECT_FALSE(Over(Tree(), Tree().model()->index(0, 0), *drag.mimeData())) << "onto the tree's root";
        EXPECT_FALSE(Over(*Tree().viewport(), QPoint(5, Tree().viewport()->height() - 5), *drag.mimeData()));
        return Drop(Tree(), Child(2), *drag.mimeData());
    });
    ASSERT_TRUE(began);
    EXPECT_NE(Text().find("<cap><pen colour=\"red\" size=\"1\"></pen></cap>"), std::string::npos) << Text();
    EXPECT_EQ(Text().find("<shop><pen"), 0U + Text().find("<shop>")) << "what was dragged stays";
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("pen"));
}

TEST_F(Drag, TheRootOfTheTreeCannotBePulledAndPullingSelectsNoOtherNode) {
    EXPECT_FALSE(Pull(Tree(), Tree().model()->index(0, 0), Cancel));
    EXPECT_EQ(t.window().tvXML.SelectedItem(), t.window().tvXML.Nodes(1));
    EXPECT_TRUE(Pull(Tree(), Child(1), Cancel));
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("ink"));
    EXPECT_EQ(t.Find<QLineEdit>(QStringLiteral("txtXPath")).text(), QStringLiteral("/shop[1]/ink[1]"))
        << "the views follow the node when its drag is over";
}

TEST_F(Drag, AllSelectedRowsArePulledAndStaySelected) {
    for (const int style : {controls::lvwReport, controls::lvwIcon, controls::lvwList}) {
        t.window().ListView1.SetView(style);
        QAbstractItemView& list = style == controls::lvwReport
                                      ? static_cast<QAbstractItemView&>(t.List())
                                      : t.Find<QListView>(QStringLiteral("ListView1Icons"));
        list.selectAll();
        QString text;
        EXPECT_TRUE(Pull(list, Row(1), [&](QDrag& drag) {
            text = drag.mimeData()->text();
            return Qt::IgnoreAction;
        })) << style;
        EXPECT_EQ(text.count(QStringLiteral("</")), 4) << text.toStdString();
        EXPECT_EQ(t.window().ListView1.SelectedRows().size(), 3U);
    }
}

TEST_F(Drag, RowsArePulledOntoTheTreeAndNodesOntoTheList) {
    t.ClickTreeRow(Child(0));
    ASSERT_TRUE(
        Pull(t.List(), Row(1), [&](QDrag& drag) { return Drop(Tree(), Child(2), *drag.mimeData()); }));
    EXPECT_NE(Text().find("<cap size=\"1\">"), std::string::npos) << Text();
    EXPECT_TRUE(Tree().hasFocus());
    t.ClickTreeRow(Node(0));
    ASSERT_TRUE(
        Pull(Tree(), Child(2), [&](QDrag& drag) { return Drop(t.List(), Row(0), *drag.mimeData()); }));
    EXPECT_NE(Text().find("size=\"1\"><cap size=\"1\"></cap></pen>"), std::string::npos) << Text();
    EXPECT_EQ(t.SelectedNode(), QStringLiteral("shop")) << "the list stays on its node";
}

// Another program may fetch the text when the document is another one already.
TEST_F(Drag, WhatAnotherProgramTookStaysAsItWas) {
    QPointer<QMimeData> taken;
    ASSERT_TRUE(Pull(Tree(), Child(2), [&](QDrag& drag) {
        taken = drag.mimeData();
        return Qt::CopyAction;
    }));
    t.window().tvXML.SelectedItem().SetText(QStringLiteral("lid"));
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->text(), QStringLiteral("<cap></cap>"));
}

// --- onto the tree and the text ----------------------------------------------------------------------------

TEST_F(Drag, TextFromAnotherProgramIsCopiedAndABoxWaitsUntilTheDropIsOver) {
    EXPECT_EQ(Drop(Tree(), Child(2), Words("<nib/>")), Qt::CopyAction)
        << "that program takes away what is moved";
    EXPECT_EQ(Drop(Tree(), Child(2), Words("wide='2'")), Qt::CopyAction);
    QCoreApplication::processEvents();
    EXPECT_NE(Text().find("<cap wide=\"2\"><nib></nib></cap>"), std::string::npos) << Text();
    EXPECT_EQ(Drop(Tree(), Child(2), Words("no attributes")), Qt::CopyAction);
    EXPECT_TRUE(t.prompts.boxes.empty()) << "the program that drags waits for the drop to be over";
    t.prompts.AllowAnyBox();
    QCoreApplication::processEvents();
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(Drop(t.List(), Row(0), Words("<nib/>")), Qt::IgnoreAction);
}

TEST_F(Drag, ANodeIsWrittenIntoTheTextAtThePointerWithItsColours) {
    t.ClickTab(QStringLiteral("textview"));
    controls::RichTextBox& pane = t.window().rtxtXML;
    const qsizetype place = pane.Text().indexOf(QStringLiteral("<ink>"));
    t.ClickTreeRow(Node(0));
    ASSERT_TRUE(Pull(Tree(), Child(2), [&](QDrag& drag) {
        QWidget& text = *t.Text().viewport();
        const QPoint pointer = t.Text().RectAt(place).center();
        EXPECT_TRUE(Over(text, pointer, *drag.mimeData()));
        EXPECT_EQ(pane.SelStart(), place) << "the caret follows the pointer";
        return Drop(text, pointer, *drag.mimeData());
    }));
    EXPECT_EQ(pane.Text().mid(place, 16), QStringLiteral("<cap></cap><ink>"));
    EXPECT_EQ(pane.SelText(), QStringLiteral("<cap></cap>"));
    pane.SetSelLength(1);
    EXPECT_EQ(pane.SelColor(), t.app().options.GLColor);
    EXPECT_TRUE(t.Text().hasFocus());
    EXPECT_EQ(t.window().miPopupContext, kContextText);
}

TEST_F(Drag, AStretchOfTextIsMovedWithItsColoursInOneStepAndCopiedWithCtrl) {
    t.ClickTab(QStringLiteral("textview"));
    TextView& view = t.Text();
    controls::RichTextBox& pane = t.window().rtxtXML;
    const QString before = pane.Text();
    const auto stretch = [&] { return pane.Text().indexOf(QStringLiteral("<ink>")); };
    const auto pull = [&](qsizetype to, Qt::KeyboardModifiers held) {
        view.Select(stretch(), stretch() + 5);
        view.runsDrag = [&, held](QDrag& drag) {
            const QPoint place = view.RectAt(to).center();
            QDragEnterEvent enter(place, kOffered, drag.mimeData(), Qt::LeftButton, held);
            QApplication::sendEvent(view.viewport(), &enter);
            QDropEvent drop(place, kOffered, drag.mimeData(), Qt::LeftButton, held);
            QApplication::sendEvent(view.viewport(), &drop);
            return drop.dropAction();
        };
        PullAt(*view.viewport(), view.RectAt(stretch() + 2).center());
        EXPECT_EQ(pane.SelText(), QStringLiteral("<ink>"));
    };
    pull(pane.Text().size(), Qt::ShiftModifier);
    EXPECT_EQ(pane.Text(), QString(before).remove(QStringLiteral("<ink>")) + QStringLiteral("<ink>"));
    pane.SetSelLength(1);
    EXPECT_EQ(pane.SelColor(), t.app().options.GLColor);
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_EQ(pane.Text(), before);
    pull(0, Qt::ControlModifier);
    EXPECT_EQ(pane.Text(), QStringLiteral("<ink>") + before);
}

TEST_F(Drag, TextThatIsDraggedOverItsOwnPaneStaysSelectedAndThePlaceUnderThePointerIsShown) {
    t.ClickTab(QStringLiteral("textview"));
    TextView& view = t.Text();
    view.Select(1, 5);
    const auto panel = [&] { return t.frame().StatusBar1().Panel(2).toStdString(); };
    bool began = false;
    view.runsDrag = [&](QDrag& drag) {
        began = true;
        const qsizetype place = view.Model().Text().indexOf(QStringLiteral("<ink>"));
        EXPECT_TRUE(Over(*view.viewport(), view.RectAt(place).center(), *drag.mimeData()));
        const qsizetype line = view.Model().GetLineFromChar(place);
        EXPECT_EQ(panel().substr(0, 4), "Ln " + std::to_string(line + 1));
        EXPECT_EQ(view.Model().SelText(), QStringLiteral("shop"));
        QDragLeaveEvent leave;
        QApplication::sendEvent(view.viewport(), &leave);
        EXPECT_EQ(panel(), "Ln 1 , Col 2");
        Over(*view.viewport(), view.RectAt(place).center(), *drag.mimeData());
        return Qt::IgnoreAction;
    };
    PullAt(*view.viewport(), view.RectAt(3).center(), &began);
    ASSERT_TRUE(began);
    EXPECT_EQ(panel(), "Ln 1 , Col 2") << "the drag was given up";
    EXPECT_EQ(view.Model().SelText(), QStringLiteral("shop"));
}

TEST_F(Drag, WhatIsDroppedOnADocumentInTheBackBringsItToTheFront) {
    t.OpenText(QStringLiteral("z.xml"), "<z><y/></z>");
    auto& area = *t.main->findChild<QMdiArea*>();
    QMdiSubWindow* back = area.subWindowList().at(0);
    auto& tree = *back->findChild<desktop::TreeWidget*>(QStringLiteral("tvXML"));
    const QModelIndex shop = tree.model()->index(0, 0, tree.model()->index(0, 0));
    t.Press(Qt::Key_Down);
    ASSERT_TRUE(Pull(Tree(), Node(0), [&](QDrag& drag) { return Drop(tree, shop, *drag.mimeData()); }));
    EXPECT_EQ(area.activeSubWindow(), back);
    EXPECT_NE(Text().find("<z><y></y></z></shop>"), std::string::npos) << Text();
}

// --- on the way --------------------------------------------------------------------------------------------

TEST_F(Drag, RestingOverAClosedNodeOpensItAndAtTheEdgeTheViewScrolls) {
    const Words words("<nib/>");
    ASSERT_FALSE(Tree().isExpanded(Child(1)));
    ASSERT_TRUE(Over(Tree(), Child(1), words));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Tree().isExpanded(Child(1)); }));

    t.OpenText(QStringLiteral("long.xml"), "<all>" + QByteArray("<one/>\n").repeated(500) + "</all>");
    t.Press(Qt::Key_Down);
    t.Press(Qt::Key_Plus);
    QWidget& viewport = *Tree().viewport();
    ASSERT_EQ(Tree().verticalScrollBar()->value(), 0);
    Over(viewport, QPoint(60, viewport.height() - 3), words);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Tree().verticalScrollBar()->value() > 5; }));
    QDragLeaveEvent leave;
    QApplication::sendEvent(&viewport, &leave);
}

// A file manager proposes to move files, and takes away what a program says it has moved.
TEST_F(Drag, FilesAreOpenedWhereverTheyAreDroppedAlsoOverAPlaceForText) {
    t.ClickTab(QStringLiteral("textview"));
    QMimeData files;
    const QString name = t.folder.Write(QStringLiteral("a b&c.xml"), "<two/>");
    const QString schema =
        t.folder.Write(QStringLiteral("three.xsd"), "<schema xmlns='http://www.w3.org/2001/XMLSchema'/>");
    files.setUrls({QUrl::fromLocalFile(name), QUrl::fromLocalFile(schema)});
    files.setText(name);
    const QString before = t.window().rtxtXML.Text();
    for (QWidget* place :
         {static_cast<QWidget*>(&t.Find<QLineEdit>(QStringLiteral("txtXPath"))), Tree().viewport(),
          t.Text().viewport(), static_cast<QWidget*>(&t.Find<QTabBar>(QStringLiteral("tbsXML")))}) {
        QDragEnterEvent enter(QPoint(5, 5), kOffered, &files, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(place, &enter);
        ASSERT_TRUE(enter.isAccepted());
        EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
        QDropEvent drop(QPointF(5, 5), kOffered, &files, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(place, &drop); // goes to the widget that took it
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        QCoreApplication::processEvents();
        ASSERT_EQ(t.frame().FormCount(), 3) << place->objectName().toStdString();
        EXPECT_EQ(t.frame().Forms().at(1)->Caption, name);
        EXPECT_TRUE(t.frame().Forms().at(2)->kind.schema);
        t.frame().CloseForm(t.frame().Forms().at(2));
        t.frame().CloseForm(t.frame().Forms().at(1));
    }
    EXPECT_EQ(t.window().rtxtXML.Text(), before);
}

} // namespace
