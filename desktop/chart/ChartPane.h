// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartView.h"
#include "platform/controls/Chart.h"
#include "platform/services/Services.h"
#include <QLabel>
#include <QWidget>
#include <memory>

namespace desktop {

/// The widget of a Chart control: the chart, below it a word on what isn't drawn, and a context menu that
/// copies and saves it. The control's data is read once the pane is visible and the event that brought it is
/// over.
class ChartPane : public QWidget {
    Q_OBJECT
public:
    explicit ChartPane(QWidget* parent = nullptr);
    /// Both must live as long as they are shown here; null: nothing is shown any more.
    void SetChart(controls::Chart* chart, const services::Services* services);
    ChartView& View() { return view_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowLook();
    void DataChanged();
    void Read();
    void ShowWord();
    void ShowMenu(const QPoint& globalPlace);

    controls::Chart* chart_ = nullptr;
    const services::Services* services_ = nullptr;
    std::unique_ptr<QObject> bond_; ///< what follows the control ends with it
    ChartView view_;
    QLabel word_;
    bool unread_ = false;
};

} // namespace desktop
