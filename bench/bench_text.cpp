// SPDX-License-Identifier: GPL-3.0-or-later
// Times what joins text and tree, without a screen: bench_text FILE. The file is one of make_records.
#include "bench/Quiet.h"
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "nodes/AddNodes.h"
#include "textview/TextLink.h"
#include "textview/TextState.h"
#include "textview/Undo.h"
#include <cstring>

namespace {

using bench::Milliseconds;
using bench::Resident;

// The last string of the document, by the search of the text view and by one over plain memory.
void Find(DocumentWindow& window) {
    const QString wanted = QStringLiteral("</records>");
    const QString plain = window.rtxtXML.Text();
    for (int round = 0; round < 3; ++round) {
        qsizetype place = 0;
        const void* hit = nullptr;
        const double view = Milliseconds([&] { place = window.rtxtXML.Find(wanted, 0, -1, 0); });
        const double exact =
            Milliseconds([&] { place = window.rtxtXML.Find(wanted, 0, -1, controls::rtfMatchCase); });
        const double memory = Milliseconds([&] {
            hit = memmem(plain.constData(), static_cast<std::size_t>(plain.size()) * 2, wanted.constData(),
                         static_cast<std::size_t>(wanted.size()) * 2);
        });
        std::printf("find at the end: any case %.1f ms, as written %.1f ms; a memory search %.1f ms%s\n",
                    view, exact, memory, place > 0 && hit ? "" : " NOT FOUND");
    }
}

// One edit in the middle, then the tree is built from it.
void Leave(DocumentWindow& window) {
    for (int round = 0; round < 3; ++round) {
        window.rtxtXML.GotFocus();
        const qsizetype middle = window.rtxtXML.Long().size() / 2;
        const qsizetype place = window.rtxtXML.Long().indexOf(u"</note>", middle, Qt::CaseSensitive);
        window.rtxtXML.SetSelStart(place);
        window.rtxtXML.KeyPress(QStringLiteral("y"));
        const double typed = Milliseconds([&] { window.rtxtXML.Type(QStringLiteral("y")); });
        const double left = Milliseconds([&] { textview::LeaveTextView(window); });
        std::printf("type %.2f ms, leave the text %.0f ms%s\n", typed, left,
                    window.bond.bTextChanged() ? " NOT READ" : "");
    }
}

// A change in the tree until the text shows it with the node selected.
void ChangeTree(DocumentWindow& window) {
    for (int round = 0; round < 3; ++round) {
        window.tvXML.SetSelectedItem(window.tvXML.Nodes(1).LastChild().LastChild());
        edit::Attend(window, kContextTree);
        const double shown = Milliseconds([&] {
            nodes::AddNewTreeCommentNode(window);
            edit::DoTree(window);
        });
        std::printf("comment added until the text shows it: %.1f ms\n", shown);
    }
}

// Sixteen steps that change the beginning, the middle and the end of the text.
void Steps(DocumentWindow& window) {
    const double before = Resident();
    for (int i = 0; i < 16; ++i) {
        auto element = window.tvXML.Nodes(1).LastChild();
        const int last = element.Children() - 1;
        window.tvXML.SetSelectedItem(window.tvXML.ChildAt(element, last * i / 16));
        nodes::AddNewTreeCommentNode(window);
    }
    std::printf("sixteen steps: %.1f MB, a copy of the text is %.1f MB; %d can be undone\n",
                Resident() - before, static_cast<double>(window.rtxtXML.Long().bytes()) / 1e6,
                textview::StateOf(window).UndoPos);
    const double back = Milliseconds([&] { textview::rUndo(window); });
    std::printf("undo one: %.0f ms\n", back);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication core(argc, argv);
    bench::Quiet quiet(argc, argv, "bench_text FILE");
    DocumentWindow& window = quiet.window();
    window.tbsXML.Select(QStringLiteral("textview"));
    Find(window);
    Leave(window);
    ChangeTree(window);
    Steps(window);
    return 0;
}
