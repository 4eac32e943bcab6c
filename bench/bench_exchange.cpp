// SPDX-License-Identifier: GPL-3.0-or-later
// Times data in and out, without a screen: bench_exchange FOLDER text|public|xml|rows|out|store, one at a
// time so that memory can be compared. Makes 1,000,000 rows by 8 in the folder, as delimited text and as a
// table of SQLite, where they aren't yet; `text` writes the document that `xml`, `out` and `store` open.
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
#include <cstring>
#include <ctime>

namespace {

using bench::Milliseconds;

constexpr int kRows = 1000000;

/// Seconds on the clock and of the processor, which matter where others work on the machine, too.
struct Took {
    double clock = 0, processor = 0;
};
template <typename Act> Took Measured(Act act) {
    Took took;
    const std::clock_t begun = std::clock();
    took.clock = Milliseconds(act) / 1e3;
    took.processor = static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
    return took;
}

/// A line of /proc/self/status in MB: VmRSS is what is resident, VmHWM the most that ever was.
double Memory(const QByteArray& line) {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray all = file.readAll();
    return all.mid(all.indexOf(line) + line.size() + 1).trimmed().split(' ').first().toDouble() * 1024 / 1e6;
}

void Report(const char* what, const Took& took) {
    std::printf("%s: %.2f s, %.2f s of processor, %.0f MB, %.0f MB at most\n", what, took.clock,
                took.processor, Memory("VmRSS"), Memory("VmHWM"));
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
    const QString program = QStringLiteral(
        "import csv, os, sqlite3, sys, time\n"
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
        "begun, used = time.monotonic(), time.process_time()\n"
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
        "{time.monotonic() - begun:.2f} s, {time.process_time() - used:.2f} s of processor')\n");
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

void ImportFile(Desk& desk, const QString& path) {
    desk.prompts.name = path;
    exchange::frmImportTxt form(desk.app);
    form.Form_Load();
    Report("delimited text shown", Measured([&] { form.cmdOpenFile.Click(); }));
    form.chkUseAttr.UserSet(true);
    form.chkFirst.UserSet(true);
    Report("document open", Measured([&] { form.OKButton.Click(); }));
}

// Of the package "ieee-data", so often that the text has 62 MB.
void ImportPublic(Desk& desk, const QString& folder) {
    constexpr qint64 kBytes = 62000000;
    QFile set(QStringLiteral("/usr/share/ieee-data/oui.csv")), many(folder + QStringLiteral("/public.csv"));
    if (!set.open(QIODevice::ReadOnly) || !many.open(QIODevice::WriteOnly)) {
        std::printf("the package ieee-data isn't installed\n");
        return;
    }
    const QByteArray bytes = set.readAll();
    while (many.size() < kBytes)
        many.write(bytes);
    many.close();
    ImportFile(desk, many.fileName());
}

void Import(Desk& desk, const QString& folder) {
    ImportFile(desk, folder + QStringLiteral("/rows.csv"));
    QFile file(folder + QStringLiteral("/rows.xml"));
    if (desk.frame.ActiveForm() && file.open(QIODevice::WriteOnly))
        file.write(desk.frame.ActiveForm()->rtxtXML.Text().toUtf8());
}

void OpenDocument(Desk& desk, const QString& folder) {
    Report("the same opened as XML",
           Measured([&] { desk.frame.OpenNamed(folder + QStringLiteral("/rows.xml")); }));
}

void Export(Desk& desk, const QString& folder) {
    OpenDocument(desk, folder);
    exchange::TextOutOptions options;
    options.i_sDelimiter = QStringLiteral(",");
    options.i_bIsAttr = true;
    const QString path = folder + QStringLiteral("/out.txt");
    const Took took = Measured([&] {
        edit::SaveTextToFile(desk.app, path, [&](const edit::TextSink& sink) {
            return exchange::GetTreeNodeResText(*desk.frame.ActiveForm(), options, sink, {});
        });
    });
    Report("written as text", took);
    std::printf("%.0f MB/s of processor\n",
                static_cast<double>(QFileInfo(path).size()) / 1e6 / took.processor);
}

void Store(Desk& desk, const QString& folder) {
    OpenDocument(desk, folder);
    const DocumentWindow& window = *desk.frame.ActiveForm();
    QFile made(folder + QStringLiteral("/made.db"));
    if (!made.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    const auto tables = table::TablesOfLevel(window.tvXML.Nodes(1).Child().Child(), false);
    auto data = exchange::DataOf(tables.front(), {});
    const QString script = exchange::ScriptOf(*data, QStringLiteral("\""));
    Report("stored in SQLite", Measured([&] {
               const QString connection = QStringLiteral("Driver=SQLite3;Database=%1;").arg(made.fileName());
               const auto exported = exchange::ExportRows(desk.app, connection, {{*data, script}}, {});
               std::printf("%lld rows %s\n", static_cast<long long>(exported.rows),
                           qPrintable(exported.result.text));
           }));
}

void ReadTable(Desk& desk, const QString& folder) {
    exchange::RowsQuery query;
    query.connection = QStringLiteral("Driver=SQLite3;Database=%1;").arg(folder + QStringLiteral("/rows.db"));
    query.sql = QStringLiteral("select * from t");
    query.encoding = QStringLiteral("UTF-8");
    query.filling = exchange::Filling::Attributes;
    Report("document from SQLite", Measured([&] {
               const auto made = exchange::RowsOf(desk.app, query, {});
               std::printf("%.0f MB %s\n", static_cast<double>(made.text.size()) / 1e6,
                           qPrintable(made.result.text));
           }));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    constexpr struct {
        const char* word;
        void (*run)(Desk& desk, const QString& folder);
    } kWords[] = {{"text", Import},    {"public", ImportPublic}, {"xml", OpenDocument},
                  {"rows", ReadTable}, {"out", Export},          {"store", Store}};
    const QString folder = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    for (const auto& known : kWords) {
        if (argc < 3 || std::strcmp(argv[2], known.word) != 0)
            continue;
        MakeText(folder + QStringLiteral("/rows.csv"));
        if (known.run == ReadTable)
            MakeTable(folder + QStringLiteral("/rows.csv"), folder + QStringLiteral("/rows.db"));
        Desk desk;
        desk.frame.MDIForm_Load();
        known.run(desk, folder);
        return 0;
    }
    std::printf("usage: bench_exchange FOLDER text|public|xml|rows|out|store\n");
    return 2;
}
