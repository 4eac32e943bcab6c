// SPDX-License-Identifier: GPL-3.0-or-later
// Times the table view below its widgets, on the children of the root: bench_table FILE. The file is one of
// make_records, of the shape rows or names.
#include "bench/Quiet.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/NodeNumbers.h"
#include "table/Sheet.h"
#include "table/Statistics.h"
#include "table/TableClipboard.h"
#include "table/TableState.h"
#include "textview/Undo.h"

namespace {

using bench::Milliseconds;
using controls::FlexGrid;

FlexGrid& First(DocumentWindow& window) {
    return window.hfgrdTableView(0);
}

controls::TreeNode RootElement(DocumentWindow& window) {
    return m_tvXML::FirstElement(window.tvXML.Nodes(1).Child());
}

void Show(DocumentWindow& window) {
    table::ResizeTableView(window, 15000, 9000);
    window.tvXML.SetSelectedItem(m_tvXML::FirstElement(RootElement(window).Child()));
    const double before = bench::Resident();
    const double shown = Milliseconds([&] { window.tbsXML.Select(QLatin1String(edit::kTableTab)); });
    std::printf(
        "table shown: %.0f ms; %d grids, %d rows and %d columns in the first; %.0f MB above the tree\n",
        shown, window.hfgrdTableView.Count(), First(window).Rows(), First(window).Cols(),
        bench::Resident() - before);
}

void EditCell(DocumentWindow& window, int row, int column, const char* where) {
    FlexGrid& grid = First(window);
    const double edited = Milliseconds([&] {
        grid.Select(row, column, row, column);
        grid.events().KeyPress(grid, 'x');
        window.txtTView.UserTyped(QStringLiteral("other"));
        int key = Qt::Key_Return;
        window.txtTView.KeyDown(key, 0);
        for (int i = 0; i < 40; ++i)
            grid.TextMatrix(std::max(row - i, 0), column);
    });
    std::printf("edit in the %s row: %.1f ms\n", where, edited);
}

// A large document's tree follows a moment later.
void Undo(DocumentWindow& window) {
    const double undone = Milliseconds([&] { textview::rUndo(window); });
    const double followed = Milliseconds([&] { textview::FollowSteps(window); });
    std::printf("undo: %.0f ms, and %.0f ms until tree and table follow\n", undone, followed);
}

void Edits(DocumentWindow& window) {
    const int last = table::TableOf(window).tables[0]->lastRow();
    if (First(window).Cols() < 5)
        return;
    for (int round = 0; round < 2; ++round) {
        EditCell(window, last, 3, "last");
        EditCell(window, 1, 3, "first");
        EditCell(window, last / 2, 3, "middle");
        Undo(window);
    }
}

void Sorts(DocumentWindow& window) {
    FlexGrid& grid = First(window);
    for (const auto& [left, right] : {std::pair(2, 2), std::pair(4, 4), std::pair(6, 6), std::pair(4, 8)}) {
        if (right >= grid.Cols())
            break;
        grid.Select(1, left, 1, right);
        std::printf("sort by columns %d to %d: %.0f ms\n", left, right,
                    Milliseconds([&] { grid.Sort(controls::flexSortGenericAscending); }));
    }
    grid.Sort(controls::flexSortNone);
}

void Walks(DocumentWindow& window) {
    const double up = Milliseconds([&] { edit::SelectNode(window, RootElement(window)); });
    const double down =
        Milliseconds([&] { edit::SelectNode(window, m_tvXML::FirstElement(RootElement(window).Child())); });
    const double along = Milliseconds([&] { edit::SelectNode(window, RootElement(window).LastChild()); });
    std::printf("walk up %.1f ms, down %.1f ms, along to the last row %.1f ms\n", up, down, along);
}

void Figures(DocumentWindow& window) {
    const auto table = table::TableOf(window).tables[0];
    for (const int column : {2, std::min(6, table->textColumn())}) {
        for (const table::Figure figure : {table::Figure::Sum, table::Figure::Var, table::Figure::AveDev}) {
            double result = 0;
            const double took =
                Milliseconds([&] { result = table::FigureOf(figure, table::ColumnValues(*table, column)); });
            std::printf("%s of column %d: %.0f ms (%g)\n",
                        table::kFigureNames[static_cast<std::size_t>(figure) - 1], column, took, result);
        }
    }
}

void Clipboard(bench::Quiet& quiet) {
    DocumentWindow& window = quiet.window();
    table::SelectAllAtTableView(window);
    const double copied = Milliseconds([&] { table::CopyAtTableView(window); });
    const auto size = static_cast<double>(quiet.clipboard().taken);
    std::printf("copy all: %.0f ms, %.0f characters, %.0f MB/s\n", copied, size, size / 1e3 / copied);
    QString lines;
    for (int row = 0; row < 20'000; ++row)
        lines += QStringLiteral("a%1\tb\tc & d\t4\t5\n").arg(row);
    quiet.clipboard().text = lines;
    FlexGrid& grid = First(window);
    grid.Select(1, 2, 1, 2);
    if (grid.Rows() < 20'002 || grid.Cols() < 8)
        return;
    std::printf("paste of 100,000 cells: %.0f ms\n", Milliseconds([&] { table::PasteAtTableView(window); }));
    Undo(window);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication core(argc, argv);
    bench::Quiet quiet(argc, argv, "bench_table FILE");
    DocumentWindow& window = quiet.window();
    Show(window);
    Walks(window);
    Sorts(window);
    Figures(window);
    Edits(window);
    Clipboard(quiet);
    return 0;
}
