// SPDX-License-Identifier: GPL-3.0-or-later
// Times the document core without a screen: bench_core FILE [open|serialise|select|path|edit].
// "open" ends as soon as the tree is filled and ready for commands, so that the whole process can be timed
// beside another program.
#include "bench/Quiet.h"
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "core/model/TreeTextCache.h"
#include "nodes/AddNodes.h"
#include "nodes/DeleteNodes.h"
#include "nodes/MoveUpDown.h"
#include "nodes/RenameNodes.h"
#include "platform/xml/ParsedDocument.h"

namespace {

void Serialise(DocumentWindow& window) {
    const auto root = window.tvXML.Nodes(1);
    for (int round = 0; round < 5; ++round) {
        QElapsedTimer timer;
        timer.start();
        const text::LongText text = m_tvXML::TreeTextCache().text(root, QStringLiteral("\t"), {});
        const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
        const double megabytes = static_cast<double>(text.size()) / 1e6;
        std::printf("serialise: %.1f MB of text in %.3f s, %.0f MB/s\n", megabytes, seconds,
                    megabytes / seconds);
        if (text.at(text.size() - 1) != u'>')
            std::puts("WRONG TEXT");
    }
}

// The last child of the root element by its number, and its path: what a jump behind many siblings costs.
void Select(Application& app, DocumentWindow& window) {
    const auto root = window.tvXML.Nodes(1);
    auto element = root.LastChild();
    const long number = m_tvXML::GetBeforeNodeNumber(app, element.LastChild());
    for (int round = 0; round < 5; ++round) {
        QElapsedTimer timer;
        timer.start();
        element.SetExpanded(true);
        const auto last = m_tvXML::GetNodeByNumber(app, number, root);
        window.tvXML.SetSelectedItem(last);
        edit::DoTree(window);
        std::printf("select: child %d, %s in %.1f ms\n", last.Row() + 1, qPrintable(window.txtXPath.Text()),
                    static_cast<double>(timer.nsecsElapsed()) / 1e6);
        window.tvXML.SetSelectedItem(root);
        edit::DoTree(window);
    }
}

// A path to the end of a large family, and one that looks at every node: the walk on our own storage.
void Path(DocumentWindow& window) {
    xml::ParsedDocument document;
    document.loadXML(window.rtxtXML.Long());
    window.tvXML.SetSelectedItem(window.tvXML.Nodes(1).LastChild().LastChild());
    edit::DoTree(window);
    for (const QString& path : {window.txtXPath.Text(), QStringLiteral("//nothing")}) {
        for (int round = 0; round < 3; ++round) {
            QElapsedTimer timer;
            timer.start();
            const bool found = static_cast<bool>(document.selectSingleNode(path));
            std::printf("path %s: %.1f ms%s\n", qPrintable(path),
                        static_cast<double>(timer.nsecsElapsed()) / 1e6, found ? "" : ", nothing there");
        }
    }
}

template <typename Act> void Time(const char* what, Act act) {
    for (int round = 0; round < 3; ++round) {
        QElapsedTimer timer;
        timer.start();
        act();
        std::printf("%s: %.1f ms\n", what, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
}

// What each command on the tree costs at the far end of the document, and a check of a name as it is typed.
void Edit(Application& app, DocumentWindow& window) {
    const auto element = window.tvXML.Nodes(1).LastChild();
    window.tbsXML.Select(QStringLiteral("listview"));
    window.tvXML.SetSelectedItem(element.LastChild());
    edit::DoTree(window);
    edit::Attend(window, kContextTree);
    Time("add an element", [&] {
        window.tvXML.SetSelectedItem(element.LastChild());
        nodes::AddNewTreeNode(window, true);
    });
    Time("rename", [&] {
        window.tvXML.SetSelectedItem(element.LastChild());
        window.tvXML.StartLabelEdit();
        bool cancel = false;
        QString name = QStringLiteral("renamed");
        nodes::tvXMLAfterLabelEdit(window, window.tvXML.SelectedItem(), cancel, name);
        window.tvXML.CancelLabelEdit();
    });
    Time("rename and bring the text up to date", [&] {
        window.tvXML.SetSelectedItem(element.LastChild());
        window.tvXML.StartLabelEdit();
        window.tvXML.EndLabelEdit(QStringLiteral("again"));
    });
    Time("add a comment", [&] { nodes::AddNewTreeCommentNode(window); });
    Time("move up", [&] {
        window.tvXML.SetSelectedItem(element.LastChild());
        edit::Attend(window, kContextTree);
        nodes::MoveUp(window);
    });
    Time("delete", [&] { nodes::DeleteTreeNode(window, element.LastChild()); });
    Time("check 1000 names", [&] {
        for (int i = 0; i < 1000; ++i)
            edit::ValidateNodeName(app, QStringLiteral("name"));
    });
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication core(argc, argv);
    const QByteArray what = argc > 2 ? argv[2] : "open";
    bench::Quiet quiet(argc, argv, "bench_core FILE [open|serialise|select|path|edit]");
    DocumentWindow& window = quiet.window();
    if (what == "open")
        std::_Exit(0); // what the process frees on its way out is not part of opening
    if (what == "serialise")
        Serialise(window);
    if (what == "path")
        Path(window);
    if (what == "select")
        Select(quiet.app(), window);
    if (what == "edit")
        Edit(quiet.app(), window);
    return 0;
}
