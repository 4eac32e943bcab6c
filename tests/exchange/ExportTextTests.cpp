// SPDX-License-Identifier: GPL-3.0-or-later
// A document goes out as delimited text: what its tables show, level by level.
#include "exchange/dialogs/frmExportDB.h"
#include "exchange/dialogs/frmExportTxt.h"
#include "tests/exchange/ExchangeDesk.h"
#include "tests/support/FullDisk.h"

namespace {

using exchange::frmExportTxt;
using services::Answer;
using test::TestApp;

constexpr char kStock[] =
    "<?xml version=\"1.0\"?><stock><wine no=\"1\" name=\"A\"/><wine no=\"007\" name=\"B&amp;C\"><lot "
    "n=\"x\">new</lot></wine></stock>";

class ExportText : public testing::Test {
protected:
    TestApp t;

    /// What the preview shows with options set by `act`, line ends as LF.
    std::string Preview(const std::function<void(frmExportTxt&)>& act = {}) {
        std::string shown;
        InExport([&](frmExportTxt& form) {
            if (act)
                act(form);
            form.cmdPreview.Click();
            QString text = form.txtSample.Text();
            shown = text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).toStdString();
        });
        return shown;
    }
    int InExport(const std::function<void(frmExportTxt&)>& act) {
        return test::InDialog<frmExportTxt>(t, t.frame().exchangeDialogs.exportTxtShown, "mnuTExpToText",
                                            act);
    }
    static void LimitTo(frmExportTxt& form, const char* levels) {
        form.optLimitLs.UserChose();
        form.txtLs.UserTyped(QLatin1String(levels));
    }
};

TEST_F(ExportText, TheTablesOfAllLevelsAreWrittenAsTheyShow) {
    t.OpenText(QStringLiteral("stock.xml"), kStock);
    // A table: its rows, the empty row for calculations, an empty line. Below the first level one more line
    // end.
    EXPECT_EQ(Preview(), "\n\n\n"
                         "1\tA\t\n7\tB&amp;C\t\n\n\n\n"
                         "x\tnew\n\n\n\n");
    EXPECT_EQ(Preview([](frmExportTxt& form) {
                  form.chkFirst.UserSet(true);
                  form.delimiter.optChoose[1].UserChose();
                  LimitTo(form, "2 levels");
              }),
              "Node Text\n\n\n\nno;name;Node Text\n1;A;\n7;B&amp;C;\n\n\n\n");
    EXPECT_EQ(Preview([](frmExportTxt& form) { LimitTo(form, "1"); }), "\n\n\n");
    EXPECT_EQ(Preview([](frmExportTxt& form) { LimitTo(form, "none"); }), "");
    EXPECT_EQ(Preview([](frmExportTxt& form) {
                  form.chkUseAttr.UserSet(false);
                  form.chkFirst.UserSet(true);
              }),
              "\nwine\tlot\n");
    EXPECT_EQ(Preview([](frmExportTxt& form) { form.chkUseAttr.UserSet(false); }), "");
    EXPECT_TRUE(edit::Shows(t.window(), edit::kTableTab));
}

TEST_F(ExportText, OnlyTheSelectedNodeIsTheBeginning) {
    DocumentWindow& window = t.OpenText(QStringLiteral("stock.xml"), kStock);
    t.ClickNode(window.tvXML.Nodes(1).Child().Next().Child().Next());
    EXPECT_EQ(Preview([](frmExportTxt& form) { form.chkOnlySelected.UserSet(true); }),
              "1\tA\t\n7\tB&amp;C\t\n\n\nx\tnew\n\n\n\n");
    EXPECT_EQ(window.tvXML.SelectedItem().Text(), QStringLiteral("wine"));
    InExport([&](frmExportTxt& form) { // a preview of all moves the selection, and not what was meant
        form.cmdPreview.Click();
        form.chkOnlySelected.UserSet(true);
        form.cmdPreview.Click();
        EXPECT_TRUE(form.txtSample.Text().startsWith(QStringLiteral("1\tA")));
        LimitTo(form, "abc");
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("No number of levels")));
        EXPECT_TRUE(form.lblNote.Caption().contains(QStringLiteral("3.70 as 3.7")));
        form.chkPlain.UserSet(true);
        EXPECT_FALSE(form.lblNote.Caption().contains(QStringLiteral("3.70 as 3.7")));
    });
}

TEST_F(ExportText, TheTableInUseIsWrittenAsItIsSortedAndCalculated) {
    DocumentWindow& window =
        t.OpenText(QStringLiteral("stock.xml"), "<a><b x=\"1\"/><b x=\"3\"/><b x=\"2\"/></a>");
    window.tbsXML.Select(QStringLiteral("tableview"));
    t.ClickNode(window.tvXML.Nodes(1).Child().Child());
    controls::FlexGrid& grid = window.hfgrdTableView(0);
    grid.Select(1, 2, 3, 2);
    grid.Sort(controls::flexSortGenericDescending);
    grid.SetTextMatrix(4, 2, QStringLiteral("6"));
    const auto onlySelected = [](frmExportTxt& form) { form.chkOnlySelected.UserSet(true); };
    EXPECT_EQ(Preview(onlySelected), "3\t\n2\t\n1\t\n6\t\n\n");
    EXPECT_EQ(Preview([&](frmExportTxt& form) {
                  onlySelected(form);
                  form.chkPlain.UserSet(true);
              }),
              "3\t\n2\t\n1\t\n\n\n");
}

TEST_F(ExportText, TheBoxWritesValuesThatComeBackTheSame) {
    t.OpenText(QStringLiteral("stock.xml"),
               "<a><b x=\"007\" y=\"say &quot;hi&quot;,&#10;2\"/><b x=\"1.50\" y=\"\"/></a>");
    EXPECT_EQ(Preview([](frmExportTxt& form) {
                  form.chkPlain.UserSet(true);
                  form.chkFirst.UserSet(true);
                  form.delimiter.optChoose[2].UserChose();
              }),
              "Node Text\n\n\n\nx,y,Node Text\n007,\"say \"\"hi\"\",\n2\",\n1.50,,\n\n\n\n");
}

TEST_F(ExportText, OkWritesTheFileAndNothingElse) {
    t.OpenText(QStringLiteral("stock.xml"), kStock);
    const QString name = t.folder.Path(QStringLiteral("out"));
    t.prompts.Choose(name);
    EXPECT_EQ(InExport([](frmExportTxt& form) {
                  LimitTo(form, "2");
                  form.OKButton.Click();
              }),
              1);
    EXPECT_EQ(t.folder.Read(QStringLiteral("out.txt")).toStdString(),
              "\r\n\r\n\r\n1\tA\t\r\n7\tB&amp;C\t\r\n\r\n\r\n\r\n");
    EXPECT_EQ(t.prompts.dialogs.back().filter, QStringLiteral("Text file (*.txt)|*.txt"));
    EXPECT_EQ(t.frame().StatusBar1().Panel(1),
              QStringLiteral("Exported to ") + name + QStringLiteral(".txt"));

    const QByteArray before = t.folder.Read(QStringLiteral("out.txt"));
    t.prompts.Choose(QString());
    t.prompts.Choose(name + QStringLiteral(".txt"));
    t.prompts.Answer(Answer::No);
    EXPECT_EQ(InExport([](frmExportTxt& form) {
                  form.OKButton.Click(); // cancelled
                  form.OKButton.Click(); // and not over that file
              }),
              0);
    EXPECT_EQ(t.folder.Read(QStringLiteral("out.txt")), before);
    EXPECT_FALSE(t.folder.Has(QStringLiteral(".txt")));
}

TEST_F(ExportText, NoLevelsAreAnEmptyFile) {
    t.OpenText(QStringLiteral("stock.xml"), kStock);
    t.prompts.Choose(t.folder.Path(QStringLiteral("empty.txt")));
    EXPECT_EQ(InExport([](frmExportTxt& form) {
                  LimitTo(form, "0");
                  form.OKButton.Click();
              }),
              1);
    EXPECT_EQ(t.folder.Read(QStringLiteral("empty.txt")), "");
}

TEST_F(ExportText, ADocumentInAnyEncodingGoesOutWhole) {
    for (const auto& [label, word] : test::kEncodings) {
        text::FileForm form;
        form.encoding = QLatin1String(label);
        const QString document =
            QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\r\n<a><b x=\"%2\"/></a>")
                .arg(QLatin1String(label), QString::fromUtf8(word));
        t.OpenText(QLatin1String(label) + QStringLiteral(".xml"), text::Encode(document, form).bytes);
        const QString name = QLatin1String(label) + QStringLiteral(".txt");
        t.prompts.Choose(t.folder.Path(name));
        InExport([](frmExportTxt& dialog) {
            dialog.chkPlain.UserSet(true);
            dialog.OKButton.Click();
        });
        EXPECT_TRUE(t.folder.Read(name).contains("\r\n" + QByteArray(word) + "\t\r\n")) << label;
    }
}

// What would go out is the tree, and the user looks at another text.
TEST_F(ExportText, ATextThatDoesNotParseIsNotExported) {
    t.OpenText(QStringLiteral("stock.xml"), kStock);
    t.prompts.AllowAnyBox();
    t.EditText(QStringLiteral("<stock><wine></stock>"));
    for (const char* entry : {"mnuTExpToText", "mnuTExpToDb"}) {
        bool shown = false;
        auto& dialogs = t.frame().exchangeDialogs;
        dialogs.exportTxtShown.connect([&](frmExportTxt&) { shown = true; });
        dialogs.exportDBShown.connect([&](exchange::frmExportDB&) { shown = true; });
        t.prompts.boxes.clear();
        t.ChooseMenu(QLatin1String(entry));
        EXPECT_FALSE(shown) << entry;
        EXPECT_EQ(t.prompts.boxes.size(), 1u) << entry;
    }
}

TEST_F(ExportText, AFolderThatTakesNoFileIsTold) {
    t.OpenText(QStringLiteral("stock.xml"), kStock);
    t.folder.Write(QStringLiteral("folder.txt/file"), {});
    const QString folder = t.folder.Path(QStringLiteral("folder.txt"));
    for (const QString& name :
         {QStringLiteral("/proc/out.txt"), folder, folder + QStringLiteral("/none/out.txt")}) {
        t.prompts.Choose(name);
        t.prompts.AllowAnyBox(Answer::Yes);
        t.prompts.boxes.clear();
        EXPECT_EQ(InExport([](frmExportTxt& form) { form.OKButton.Click(); }), 0) << name.toStdString();
        EXPECT_FALSE(t.prompts.boxes.empty()) << name.toStdString();
    }
}

TEST_F(ExportText, AFullDiskIsToldAndLeavesNoFileAndCancelTheOldOne) {
    QByteArray document = "<a>";
    for (int i = 0; i < 20000; ++i)
        document += "<b x=\"" + QByteArray::number(i) + "\"/>";
    t.OpenText(QStringLiteral("rows.xml"), document + "</a>");
    t.prompts.Choose(t.folder.Path(QStringLiteral("full.txt")));
    t.prompts.Answer(Answer::Ok);
    EXPECT_EQ(InExport([](frmExportTxt& form) {
                  const test::FullDisk full(1 << 14);
                  form.OKButton.Click();
              }),
              0);
    EXPECT_EQ(t.prompts.boxes.size(), 1u);
    EXPECT_FALSE(t.folder.Has(QStringLiteral("full.txt")));
    t.prompts.Choose(t.folder.Write(QStringLiteral("old.txt"), "kept"));
    t.prompts.Answer(Answer::Yes);
    t.progress.cancelAtStep = t.progress.steps + 10;
    EXPECT_EQ(InExport([](frmExportTxt& form) { form.OKButton.Click(); }), 0);
    EXPECT_EQ(t.prompts.boxes.size(), 2u);
    EXPECT_EQ(t.folder.Read(QStringLiteral("old.txt")), "kept");
}

TEST_F(ExportText, TextsWithoutCellsCanBeCancelled) {
    t.OpenText(QStringLiteral("rows.xml"), "<a>" + QByteArray("<b><c>x</c></b>").repeated(9000) + "</a>");
    t.prompts.Choose(t.folder.Path(QStringLiteral("none.txt")));
    t.progress.cancelAtStep = t.progress.steps + 12; // among the texts, behind the names
    EXPECT_EQ(InExport([](frmExportTxt& form) {
                  form.chkUseAttr.UserSet(false);
                  form.chkFirst.UserSet(true);
                  form.OKButton.Click();
              }),
              0);
    EXPECT_FALSE(t.folder.Has(QStringLiteral("none.txt")));
}

} // namespace
