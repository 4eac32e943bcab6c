// SPDX-License-Identifier: GPL-3.0-or-later
// Times what a schema window does: bench_schema FILE. A check takes turns with the schema library
// alone.
#include "bench/LibraryAlone.h"
#include "bench/Quiet.h"
#include "core/edit/View.h"
#include "schema/CheckSchema.h"
#include "schema/CompactState.h"
#include "schema/Diagnostics.h"
#include "schema/InferSchema.h"
#include "schema/SampleDocument.h"
#include "schema/SchemaState.h"
#include <algorithm>
#include <vector>

namespace {

constexpr int kTurns = 5;

// As a click does: menus and list stand when it is over.
void Select(DocumentWindow& window, controls::TreeNode node) {
    window.tvXML.GotFocus();
    window.tvXML.SetSelectedItem(node);
    window.tvXML.NodeClick(node);
    window.tvXML.Click();
    window.app.frame().RefreshMenu();
}

void TimeInstance(DocumentWindow& window) {
    controls::TreeView instance;
    instance.ImageList = window.tvXML.ImageList;
    std::printf("sample: %.1f ms, ",
                bench::Milliseconds([&] { schema::TreeToCompactTree(window, instance, false); }));
    std::printf("%d nodes\n", instance.Nodes.Count());
    std::printf("show the compact view: %.1f ms\n",
                bench::Milliseconds([&] { window.tbsXML.Select(QLatin1String(edit::kCompactTab)); }));
    controls::TreeView& shown = schema::CompactOf(window).tvRes;
    shown.GotFocus();
    if (shown.StartLabelEdit())
        std::printf("rename the root in it: %.1f ms\n",
                    bench::Milliseconds([&] { shown.EndLabelEdit(shown.SelectedItem().Text() + u'_'); }));
}

void TimeInference(DocumentWindow& window) {
    qsizetype length = 0;
    std::printf("infer a schema: %.1f ms, ", bench::Milliseconds([&] {
                    length = schema::GetTreeNodesXMLAndConvertToSchemaLocal(window.tvXML).size();
                }));
    std::printf("%lld characters\n", static_cast<long long>(length));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    bench::Quiet quiet(argc, argv, "bench_schema FILE");
    DocumentWindow& window = quiet.window();
    window.tbsXML.Select(QLatin1String(edit::kListTab));
    const controls::TreeNode schema = schema::GetSchemaNode(window.tvXML);
    if (schema) {
        std::printf("select the schema element: %.1f ms\n",
                    bench::Milliseconds([&] { Select(window, schema); }));
        std::vector<double> times;
        controls::TreeNode node = schema.Child();
        for (int i = 0; node && i < 100; ++i, node = node.Next())
            times.push_back(bench::Milliseconds([&] { Select(window, node); }));
        std::sort(times.begin(), times.end());
        if (!times.empty())
            std::printf("select a declaration: %.2f ms, at worst %.2f ms\n", times[times.size() / 2],
                        times.back());
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    for (int turn = 0; turn < kTurns; ++turn) {
        const double alone = bench::LibraryAlone(path.toStdString(), window.kind.schema);
        const double ours = bench::Milliseconds([&] { schema::CheckDocument(window, true); });
        std::printf("check: %.1f ms, the library alone %.1f ms, ratio %.2f; %d diagnostics\n", ours, alone,
                    ours / alone, schema::DiagnosticsOf(window).lvDiagnostics.Count());
    }
    if (window.kind.schema)
        TimeInstance(window);
    else
        TimeInference(window);
    return 0;
}
