// SPDX-License-Identifier: GPL-3.0-or-later
// Times data in and out, without a screen: bench_exchange FOLDER. Makes 1,000,000 rows by 8 there, as
// delimited text and as a table of SQLite, where they aren't yet.
#include "bench/Quiet.h"
#include "exchange/ExportRows.h"
#include "exchange/ImportRows.h"
#include "exchange/OpenMade.h"
#include "exchange/TextOut.h"
#include "exchange/dialogs/frmImportTxt.h"
#include "table/LoadTables.h"
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace {

using bench::Milliseconds;

constexpr int kRows = 1000000;

// Resident memory in MB.
double Resident() {
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() * 4096 / 1e6 : 0;
}

void MakeText(const QString& path) {
    QFile file(path);
    if (file.exists() || !file.open(QIODevice::WriteOnly))
        return;
    file.write("no,name,city,price,amount,day,code,note\r\n");
    for (int i = 0; i < kRows; ++i) {
        const QByteArray n = QByteArray::number(i);
        file.write(n + ",\"Name, " + n + "\",Bonn,12.50," + QByteArray::number(i % 97) + ",2024-05-06,A-" +
                   n + ",short note " + QByteArray::number(i % 13) + "\r\n");
    }
}

// The same rows in a table, and the time that another reader takes to write them as the same document.
void MakeTable(const QString& text, const QString& path) {
    const QString program =
        QStringLiteral("import csv, os, sqlite3, sys, time\n"
                       "from xml.sax.saxutils import escape\n"
                       "if not os.path.exists(sys.argv[2]):\n"
                       "    d = sqlite3.connect(sys.argv[2])\n"
                       "    d.execute('create table t(no integer, name varchar(40), city varchar(40), price "
                       "decimal(9,2), amount "
                       "integer, day date, code varchar(20), note varchar(60))')\n"
                       "    rows = csv.reader(open(sys.argv[1], newline=''))\n"
                       "    next(rows)\n"
                       "    d.executemany('insert into t values(?,?,?,?,?,?,?,?)', rows)\n"
                       "    d.commit()\n"
                       "begun = time.monotonic()\n"
                       "d = sqlite3.connect(sys.argv[2])\n"
                       "c = d.execute('select * from t')\n"
                       "names = [x[0] for x in c.description]\n"
                       "with open(sys.argv[2] + '.xml', 'w') as out:\n"
                       "    out.write('<data>\\r\\n')\n"
                       "    for row in c:\n"
                       "        out.write('\\t<row ' + ''.join(f'{n}=\"{escape(str(v))}\" ' for n, v in "
                       "zip(names, row)) + '/>\\r\\n')\n"
                       "    out.write('</data>')\n"
                       "print(f'the sqlite3 module of another language writes the same to a file in "
                       "{time.monotonic() - begun:.2f} s')\n");
    QProcess python;
    python.setProcessChannelMode(QProcess::ForwardedChannels);
    python.start(QStringLiteral("python3"), {QStringLiteral("-c"), program, text, path});
    python.waitForFinished(-1);
}

class ChosenFile : public bench::NoPrompts {
public:
    QString name;
    QString OpenFileName(const QString&, const QString&) override { return name; }
};

struct Desk {
    ChosenFile prompts;
    bench::NoBar bar;
    bench::NoClipboard clipboard;
    std::unique_ptr<services::SettingsStore> settings =
        services::MakeIniSettings(QDir::tempPath() + QStringLiteral("/vantrel-bench.ini"));
    std::unique_ptr<services::FileSystem> files = services::MakeFileSystem();
    std::unique_ptr<services::HttpClient> http = services::MakeHttpClient();
    std::unique_ptr<services::Clock> clock = services::MakeClock();
    Application app{services::Services{prompts, bar, *settings, *files, *http, *clock, clipboard}};
    frmMDIMain frame{app};
};

void Import(Desk& desk, const QString& text) {
    desk.prompts.name = text;
    exchange::frmImportTxt form(desk.app);
    form.Form_Load();
    const double shown = Milliseconds([&] { form.cmdOpenFile.Click(); });
    form.chkUseAttr.UserSet(true);
    form.chkFirst.UserSet(true);
    const double before = Resident();
    const double opened = Milliseconds([&] { form.OKButton.Click(); });
    std::printf("delimited text: shown in %.0f ms, document open in %.2f s, %.0f MB more%s\n", shown,
                opened / 1e3, Resident() - before, desk.frame.ActiveForm() ? "" : " NOT OPEN");
}

void Reopen(Desk& desk, const QString& folder) {
    const QString path = folder + QStringLiteral("/rows.xml");
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(desk.frame.ActiveForm()->rtxtXML.Text().toUtf8());
    file.close();
    desk.frame.ActiveForm()->bond.msOpenText = desk.frame.ActiveForm()->rtxtXML.Long();
    desk.frame.CloseForm(desk.frame.ActiveForm());
    const double before = Resident();
    const double opened = Milliseconds([&] { desk.frame.OpenNamed(path); });
    std::printf("the same as XML: %.0f MB, open in %.2f s, %.0f MB more\n",
                static_cast<double>(file.size()) / 1e6, opened / 1e3, Resident() - before);
}

void Export(DocumentWindow& window, const QString& folder) {
    exchange::TextOutOptions options;
    options.i_sDelimiter = QStringLiteral(",");
    options.i_bIsAttr = true;
    const QString path = folder + QStringLiteral("/out.txt");
    const double took = Milliseconds([&] {
        edit::SaveTextToFile(window.app, path, [&](const edit::TextSink& sink) {
            return exchange::GetTreeNodeResText(window, options, sink, {});
        });
    });
    const double megabytes = static_cast<double>(QFileInfo(path).size()) / 1e6;
    std::printf("export as text: %.0f MB in %.2f s, %.0f MB/s\n", megabytes, took / 1e3,
                megabytes / took * 1e3);
    QFile made(folder + QStringLiteral("/made.db"));
    if (!made.open(QIODevice::WriteOnly))
        return;
    made.resize(0);
    const auto tables = table::TablesOfLevel(window.tvXML.Nodes(1).Child().Child(), false);
    auto data = exchange::DataOf(tables.front(), {});
    const QString script = exchange::ScriptOf(*data, QStringLiteral("\""));
    exchange::Exported exported;
    const double stored = Milliseconds([&] {
        exported = exchange::ExportRows(QStringLiteral("Driver=SQLite3;Database=%1;").arg(made.fileName()),
                                        {{*data, script}}, {});
    });
    std::printf("export into SQLite: %lld rows in %.2f s %s\n", static_cast<long long>(exported.rows),
                stored / 1e3, qPrintable(exported.result.text));
}

void ReadTable(Desk& desk, const QString& path) {
    exchange::RowsQuery query;
    query.connection = QStringLiteral("Driver=SQLite3;Database=%1;").arg(path);
    query.sql = QStringLiteral("select * from t");
    query.encoding = QStringLiteral("UTF-8");
    query.filling = exchange::Filling::Attributes;
    exchange::MadeRows made;
    const double took = Milliseconds([&] { made = exchange::RowsOf(desk.app, query, {}); });
    std::printf("from SQLite: %.0f MB of document in %.2f s %s\n",
                static_cast<double>(made.text.size()) / 1e6, took / 1e3, qPrintable(made.result.text));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::printf("usage: bench_exchange FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString text = folder + QStringLiteral("/rows.csv"), table = folder + QStringLiteral("/rows.db");
    MakeText(text);
    MakeTable(text, table);
    Desk desk;
    desk.frame.MDIForm_Load();
    ReadTable(desk, table);
    Import(desk, text);
    Reopen(desk, folder);
    Export(*desk.frame.ActiveForm(), folder);
}
