// SPDX-License-Identifier: GPL-3.0-or-later
// Charts: what is kept of many values, what each kind draws, the real widget with mouse, keys and menu.
#include "desktop/chart/ChartCopy.h"
#include "desktop/chart/ChartPaint.h"
#include "desktop/chart/ChartPane.h"
#include "desktop/chart/SeriesLook.h"
#include "desktop/chart/Thinning.h"
#include "desktop/chart/ValueAt.h"
#include "tests/support/TestApp.h"
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QTest>
#include <QWheelEvent>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace desktop;
using controls::ChartCells;
using controls::ChartTable;
using controls::ReadChartTable;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr QSize kSize(520, 320);

struct Kind {
    int type;
    const char* name;
};
constexpr Kind kKinds[] = {{controls::ch3dBar, "bar-3d"},
                           {controls::ch2dBar, "bar-2d"},
                           {controls::ch3dLine, "line-3d"},
                           {controls::ch2dLine, "line-2d"},
                           {controls::ch3dArea, "area-3d"},
                           {controls::ch2dArea, "area-2d"},
                           {controls::ch3dStep, "step-3d"},
                           {controls::ch2dStep, "step-2d"},
                           {controls::ch3dCombination, "combination-3d"},
                           {controls::ch2dCombination, "combination-2d"},
                           {controls::ch2dPie, "pie-2d"},
                           {controls::ch2dXY, "xy-2d"}};

/// Rows of cells under headers.
ChartTable Table(const QStringList& headers, const std::vector<QStringList>& rows) {
    return ReadChartTable(
        {.rows = rows.size(),
         .columns = static_cast<std::size_t>(headers.size()),
         .cell = [&](std::size_t row,
                     std::size_t column) { return rows[row].value(static_cast<qsizetype>(column)); },
         .header = [&](std::size_t column) { return headers[static_cast<qsizetype>(column)]; },
         .category = {}});
}

ChartTable Sales() {
    ChartTable table = Table({"pens", "ink", "paper"}, {{"12", "7.5", "3"},
                                                        {"9", "8", "4.5"},
                                                        {"14.5", "6", "-2"},
                                                        {"11", "", "5"},
                                                        {"17", "9.5", "6.5"},
                                                        {"15", "11", "8"}});
    table.category = [](std::size_t row) { return QStringLiteral("[%1]").arg(row + 1); };
    return table;
}

ChartPicture PictureOf(const ChartTable& table, int type) {
    return {.table = &table, .type = type, .palette = QPalette(Qt::white), .font = QFont("DejaVu Sans", 8)};
}

QImage Draw(const ChartPicture& picture, QSize size = kSize) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    PaintChart(painter, picture, LayChart(picture, QRectF(QPointF(), size)));
    return image;
}

/// How many points have a colour.
int Count(const QImage& image, QRgb colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour ? 1 : 0;
    return count;
}

// --- what is drawn of many values --------------------------------------------------------------------------

TEST(Charts, APeakAmongAMillionValuesIsKept) {
    std::vector<double> values(1'000'000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::sin(static_cast<double>(i) / 1000);
    values[314'159] = 50;
    values[271'828] = -40;
    const Visible all{{-0.5, 999'999.5}, 800};
    const std::vector<Stretch> runs = RunsOf(values, all);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_LE(runs[0].size(), 4U * 800);
    EXPECT_EQ(runs[0].front().x(), 0);
    EXPECT_EQ(runs[0].back().x(), 999'999);
    double low = 0, high = 0, last = -1;
    for (const QPointF& point : runs[0]) {
        EXPECT_GT(point.x(), last) << "in the order of the rows";
        last = point.x();
        low = std::min(low, point.y());
        high = std::max(high, point.y());
    }
    EXPECT_EQ(low, -40);
    EXPECT_EQ(high, 50);

    const std::vector<Bar> bars = BarsOf(values, all);
    EXPECT_LE(bars.size(), 800U);
    EXPECT_TRUE(std::any_of(bars.begin(), bars.end(), [](const Bar& bar) { return bar.value.high == 50; }));
    // Seen from near by each row is there.
    EXPECT_EQ(RunsOf(values, {{314'150, 314'170}, 800})[0].size(), 23U) << "and one beside it on each side";
}

TEST(Charts, AGapEndsALineAndAStepIsAsWideAsItsRow) {
    const std::vector<double> values{1, 2, kGap, -3, kGap};
    const Visible all{{-0.5, 4.5}, 100};
    const std::vector<Stretch> runs = RunsOf(values, all);
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[1], Stretch({{3, -3}}));
    EXPECT_EQ(StepsOf(values, all)[1], Stretch({{2.5, -3}, {3.5, -3}}));
    EXPECT_EQ(WithZeros({{0, -1}, {1, 3}}), Stretch({{0, -1}, {0.25, 0}, {1, 3}}));
    EXPECT_EQ(BarsOf(values, all).size(), 3U);
}

TEST(Charts, MarksStandAtRoundNumbersAndDiffer) {
    const auto labels = [](double low, double high) {
        QStringList found;
        for (const Tick& tick : ValueScale({low, high}, 5, true).ticks)
            found << tick.label;
        return found;
    };
    EXPECT_EQ(labels(0, 17), QStringList({"0", "5", "10", "15", "20"}));
    EXPECT_EQ(labels(-0.3, 0.4), QStringList({"-0.4", "-0.2", "0", "0.2", "0.4"}));
    EXPECT_EQ(labels(1e9, 1e9 + 2).first(), QStringLiteral("1000000000"));
    for (const auto& [low, high] :
         {std::pair(1e9, 1e9 + 2), std::pair(-1.7e308, 1.7e308), std::pair(5.0, 5.0), std::pair(0.0, 0.0),
          std::pair(1e17, 1e17 + 16), std::pair(0.0, 5e-324)}) {
        const QStringList found = labels(low, high);
        EXPECT_GE(found.size(), 2) << low;
        EXPECT_LE(found.size(), 14) << low;
        EXPECT_EQ(QSet<QString>(found.begin(), found.end()).size(), found.size())
            << found.join(u' ').toStdString();
    }
}

// --- what the cells give -----------------------------------------------------------------------------------

TEST(Charts, WhatIsNoNumberIsToldOf) {
    const ChartTable table =
        Table({"name", "price", "size", "empty"},
              {{"pen", "1.5", " 2 ", ""}, {"ink", "free", "", ""}, {"cap", "inf", "1e999", " "}});
    ASSERT_EQ(table.series.size(), 2U);
    EXPECT_EQ(table.series[0].name, QStringLiteral("price"));
    EXPECT_TRUE(std::isnan(table.series[0].values[2]));
    EXPECT_EQ(table.series[1].values[0], 2);
    EXPECT_EQ(
        table.word,
        QStringLiteral("No numbers in \"name\", \"empty\". Gaps where \"price\", \"size\" holds no number."));
    const ChartTable wide =
        ReadChartTable({.rows = 2,
                        .columns = 5000,
                        .cell = [](std::size_t, std::size_t column) { return QString::number(column); },
                        .header = [](std::size_t column) { return QString::number(column); },
                        .category = {}});
    EXPECT_EQ(wide.series.size(), controls::kMostChartSeries);
    EXPECT_EQ(wide.word, QStringLiteral("Drawn from the first 100 of 5000 columns."));
}

// --- pictures ----------------------------------------------------------------------------------------------

// With VANTREL_CHARTS=folder the pictures are kept there.
TEST(Charts, EveryKindShowsEachSeriesInItsColour) {
    const ChartTable table = Sales();
    const QString folder = qEnvironmentVariable("VANTREL_CHARTS");
    QSet<QByteArray> pictures;
    for (const Kind& kind : kKinds) {
        const ChartPicture picture = PictureOf(table, kind.type);
        const QImage image = Draw(picture);
        const bool points = kind.type == controls::ch2dXY, pie = kind.type == controls::ch2dPie;
        for (std::size_t series = points ? 1 : 0; series < table.series.size() && !pie; ++series)
            EXPECT_GT(Count(image, LookOf(series, picture.palette).colour.rgb()), 20) << kind.name << series;
        EXPECT_NE(image.pixel(image.width() / 2, image.height() / 2), 0U) << kind.name;
        pictures.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        if (!folder.isEmpty())
            image.save(QDir(folder).filePath(QLatin1String(kind.name) + QStringLiteral(".png")));
    }
    EXPECT_EQ(pictures.size(), std::size(kKinds)) << "no two of them are the same";
}

TEST(Charts, AwkwardDataIsDrawnInEveryKind) {
    const QString huge = QStringLiteral("1.7e308");
    std::vector<ChartTable> tables{
        {},
        Table({"a"}, {}),
        Table({"a"}, {{"word"}}),
        Table({"a"}, {{"7"}}),
        Table({"a", "b"}, {{"0", ""}, {"0", "-0"}}),
        Table({"a", "b"}, {{huge, "-" + huge}, {"-" + huge, huge}, {huge, "5e-324"}}),
        Table({"a", "b"}, {{"-1", ""}, {"", "-2"}, {"-3", ""}}),
    };
    std::vector<QStringList> rows;
    for (int row = 0; row < 3000; ++row)
        rows.push_back({QString::number(row % 7), QString::number(-row)});
    tables.push_back(Table({"many", QString(5000, u'w')}, rows));
    ChartTable wide = Table({"a"}, {{"1"}, {"2"}});
    wide.series.assign(controls::kMostChartSeries, wide.series[0]);
    tables.push_back(wide);
    for (const ChartTable& table : tables)
        for (const Kind& kind : kKinds)
            for (const QSize size : {QSize(300, 200), QSize(30, 20), QSize(1, 1)}) {
                ChartPicture picture = PictureOf(table, kind.type);
                picture.view = size.width() == 30 ? Extent{0.4, 0.4001} : Extent{0, 1};
                Draw(picture, size);
                ValueAt(picture, LayChart(picture, QRectF(QPointF(), size)), {size.width() / 2.0, 10});
            }
}

// --- the widget --------------------------------------------------------------------------------------------

/// A chart with its widget on an offscreen platform.
struct ChartDesk : ::testing::Test {
    test::TestApp t;
    controls::Chart chart;
    ChartPane pane;

    ChartDesk() {
        pane.SetChart(&chart, &t.app().services);
        pane.resize(kSize);
        pane.show();
        pane.activateWindow();
        pane.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pane));
    }
    ~ChartDesk() override { pane.SetChart(nullptr, nullptr); }

    /// A column of cells by their numbers.
    void Fill(std::size_t rows, std::function<QString(std::size_t)> cell) {
        chart.SetChartData({.rows = rows,
                            .columns = 1,
                            .cell = [cell](std::size_t row, std::size_t) { return cell(row); },
                            .header = [](std::size_t) { return QStringLiteral("n"); },
                            .category = {}});
        QCoreApplication::processEvents();
    }
    Extent Shown() { return pane.View().Picture().view; }
    void Wheel(QPoint place, int notches) {
        QWheelEvent event(place, pane.View().mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&pane.View(), &event);
    }
    ChartLayout Layout() { return LayChart(pane.View().Picture(), pane.View().rect()); }
};

TEST_F(ChartDesk, ItsDataIsReadWhenItShowsAndTheWordStandsBelow) {
    int read = 0;
    const auto cell = [&read](std::size_t row) {
        ++read;
        return row == 1 ? QStringLiteral("none") : QString::number(row);
    };
    pane.hide();
    Fill(3, cell);
    EXPECT_EQ(read, 0);
    pane.show();
    EXPECT_EQ(read, 3);
    EXPECT_EQ(pane.findChild<QLabel*>()->text(), QStringLiteral("Gaps where \"n\" holds no number."));
    chart.SetVisible(false);
    EXPECT_TRUE(pane.isHidden());
    Fill(2, cell);
    chart.Clear();
    chart.SetVisible(true);
    EXPECT_EQ(read, 3) << "what was cleared before it showed isn't asked for";
    EXPECT_TRUE(pane.findChild<QLabel*>()->isHidden());
}

TEST_F(ChartDesk, TheWheelZoomsAtThePointerAndKeysAndDraggingMove) {
    Fill(1000, [](std::size_t row) { return QString::number(row); });
    const QRectF front = Layout().front;
    const QPoint left(static_cast<int>(front.left()), 100);
    Wheel(left, 3);
    EXPECT_NEAR(Shown().low, 0, 0.01);
    EXPECT_NEAR(Shown().high, 0.512, 0.01);
    QTest::keyClick(&pane.View(), Qt::Key_Right);
    EXPECT_NEAR(Shown().low, 0.0512, 0.01);
    const QPoint from(static_cast<int>(front.center().x()), 100);
    QTest::mousePress(&pane.View(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&pane.View(), from + QPoint(500, 0));
    QTest::mouseRelease(&pane.View(), Qt::LeftButton, {}, from);
    EXPECT_EQ(Shown().low, 0) << "not past the first row";
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&pane.View(), Qt::Key_Plus);
    EXPECT_NEAR(Shown().high - Shown().low, 0.002, 1e-9) << "two rows stay";
    QTest::mouseDClick(&pane.View(), Qt::LeftButton, {}, from);
    EXPECT_EQ(Shown().high, 1);
}

TEST_F(ChartDesk, TheValueUnderThePointerIsFoundInEveryKind) {
    const ChartTable table = Sales();
    for (const Kind& kind : kKinds) {
        const ChartPicture picture = PictureOf(table, kind.type);
        const ChartLayout layout = LayChart(picture, QRectF(QPointF(), kSize));
        QSet<QString> told;
        for (int x = 0; x < kSize.width(); x += 3)
            for (int y = 0; y < kSize.height(); y += 3)
                told.insert(ValueAt(picture, layout, QPointF(x, y)));
        const QString wanted = kind.type == controls::ch2dPie  ? QStringLiteral("[5]: 17 (21.7%)")
                               : kind.type == controls::ch2dXY ? QStringLiteral("[5]\nink: 9.5")
                                                               : QStringLiteral("[5]\npens: 17");
        EXPECT_TRUE(told.contains(wanted)) << kind.name;
        EXPECT_TRUE(told.contains(QString())) << kind.name << ": nothing stands beside it";
    }
}

TEST_F(ChartDesk, ItIsSavedAsPngAndSvgAndCopied) {
    Fill(5, [](std::size_t row) { return QString::number(row * row); });
    const ChartPicture picture = pane.View().Picture();
    const auto save = [&](const char* name) {
        t.prompts.Choose(t.folder.Path(QLatin1String(name)));
        SaveChart(t.app().services, picture, kSize);
    };
    save("a");
    EXPECT_EQ(QImage(t.folder.Path("a.png")).size(), 2 * kSize);
    save("b.SVG");
    const QByteArray svg = t.folder.Read("b.SVG");
    EXPECT_TRUE(svg.contains("<svg") && svg.contains(">16<")) << "a mark of the axis is text";
    t.folder.Write("c.svg", "mine");
    t.prompts.Answer(services::Answer::No);
    save("c.svg");
    EXPECT_EQ(t.folder.Read("c.svg"), "mine");
    t.prompts.Answer(services::Answer::Ok);
    save("no/such/folder.png");
    EXPECT_FALSE(t.prompts.boxes.back().text.isEmpty());
    CopyChart(picture, kSize);
    EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
}

} // namespace
