// SPDX-License-Identifier: GPL-3.0-or-later
// Times the text view's widget on a document: bench_view FILE. Each act ends when the view is painted again.
// Without a screen: QT_QPA_PLATFORM=offscreen.
#include "bench/Quiet.h"
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "desktop/text/TextAdapter.h"
#include "desktop/text/TextView.h"
#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <vector>

namespace {

using desktop::TextAdapter;
using desktop::TextView;

void Settle() {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

void Press(TextView& view, Qt::Key key, Qt::KeyboardModifiers held, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, held, text), release(QEvent::KeyRelease, key, held, text);
    QCoreApplication::sendEvent(&view, &press);
    view.viewport()->repaint();
    QCoreApplication::sendEvent(&view, &release);
    Settle();
}

// The worst and the middle time of a key that is pressed again and again.
void Time(TextView& view, const char* what, Qt::Key key, Qt::KeyboardModifiers held,
          const QString& text = {}) {
    std::vector<double> times;
    for (int i = 0; i < 21; ++i)
        times.push_back(bench::Milliseconds([&] { Press(view, key, held, text); }));
    std::sort(times.begin(), times.end());
    std::printf("%s: %.1f ms, at worst %.1f ms\n", what, times[times.size() / 2], times.back());
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    bench::Quiet quiet(argc, argv, "bench_view FILE");
    DocumentWindow& window = quiet.window();
    window.tbsXML.Select(QStringLiteral("textview"));
    TextView view;
    const TextAdapter adapter(window.rtxtXML, view, nullptr);
    view.resize(900, 700);
    std::printf("show: %.1f ms\n", bench::Milliseconds([&] {
                    view.show();
                    view.setFocus();
                    Settle();
                    view.viewport()->repaint();
                }));
    window.rtxtXML.GotFocus();
    Time(view, "type at the beginning", Qt::Key_X, {}, QStringLiteral("x"));
    Time(view, "to the end", Qt::Key_End, Qt::ControlModifier);
    Time(view, "type at the end", Qt::Key_X, {}, QStringLiteral("x"));
    Time(view, "page up", Qt::Key_PageUp, {});
    view.Select(window.rtxtXML.Long().size() / 2, window.rtxtXML.Long().size() / 2);
    Time(view, "type in the middle", Qt::Key_X, {}, QStringLiteral("x"));
    Time(view, "take it out again", Qt::Key_Backspace, {});
    Time(view, "line by line", Qt::Key_Down, {});
    return 0;
}
