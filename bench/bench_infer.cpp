// SPDX-License-Identifier: GPL-3.0-or-later
// Times the making of a schema that fits a document: bench_infer FILE [print]
#include "bench/Quiet.h"
#include "core/edit/TextWay.h"
#include "schema/dialogs/BlankTexts.h"
#include "schema/infer/CollectDocument.h"
#include "schema/infer/SchemaText.h"
#include <cstring>
#include <ctime>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    bench::Quiet quiet(argc, argv, "bench_infer FILE [print]");
    DocumentWindow& window = quiet.window();
    const double before = bench::Resident();
    const std::clock_t opened = std::clock();
    schema::DocumentFacts facts;
    std::vector<schema::InferredSchema> schemas;
    const double took = bench::Milliseconds([&] {
        schema::CollectTree(window.tvXML, facts, {});
        const bool blank = facts.HaveEmptyElements() && schema::HaveBlankTexts({window.way->text(window)});
        schemas = schema::SchemasOf(facts, {QStringLiteral("UTF-8"), QStringLiteral("s.xsd"), blank, false});
    });
    if (schemas.empty())
        return 1;
    const auto seconds = [](std::clock_t ticks) { return static_cast<double>(ticks) / CLOCKS_PER_SEC; };
    std::printf("infer: %zu elements, %zu schemas in %.1f ms, %.1f MB more\n", facts.elements.size(),
                schemas.size(), took, bench::Resident() - before);
    std::printf("processor: open %.2f s, infer %.2f s\n", seconds(opened), seconds(std::clock() - opened));
    if (argc > 2 && std::strcmp(argv[2], "print") == 0) {
        for (const schema::InferredSchema& one : schemas)
            std::printf("--- %s\n%s", qPrintable(one.file), one.text.toUtf8().constData());
    }
    services::SchemaRequest request{text::LongText(schemas[0].text), QStringLiteral("/s.xsd"), true, {}};
    for (const schema::InferredSchema& one : schemas)
        request.fetched[u'/' + one.file] = {u'/' + one.file, one.text.toUtf8()};
    services::SchemaAnswer answer;
    const double checked = bench::Milliseconds(
        [&] { answer = quiet.app().services.schemas->CheckBy(request, {window.way->text(window)}, {}); });
    std::printf("check: %.1f ms, outcome %d, %zu faults %s\n", checked, static_cast<int>(answer.outcome),
                answer.faults.size(), answer.faults.empty() ? "" : qPrintable(answer.faults[0].message));
    return 0;
}
