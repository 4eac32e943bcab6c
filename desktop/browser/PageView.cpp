// SPDX-License-Identifier: GPL-3.0-or-later
// The module with the web engine: the only file that knows it.
#include "desktop/browser/PageView.h"
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

namespace desktop {

namespace {

/// Lets through the file on show and what stands in the page itself; nothing else is fetched, from wherever.
class OnlyThisFile : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    QUrl shown;
    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        const QUrl url = request.requestUrl();
        if (url.adjusted(QUrl::RemoveFragment) != shown && url.scheme() != QLatin1String("data"))
            request.block(true);
    }
};

/// A page that stays where it was put.
class StillPage : public QWebEnginePage {
public:
    using QWebEnginePage::QWebEnginePage;

protected:
    bool acceptNavigationRequest(const QUrl&, NavigationType type, bool) override {
        return type == NavigationTypeTyped || type == NavigationTypeReload;
    }
    QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
};

class BrowserPage : public PageView {
public:
    explicit BrowserPage(QWidget* parent) : PageView(parent) {
        // Nothing of what is shown stays behind: a profile without a name is kept in memory alone.
        profile_.setUrlRequestInterceptor(&filter_);
        QWebEngineSettings& settings = *profile_.settings();
        for (const auto attribute :
             {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::LocalContentCanAccessRemoteUrls,
              QWebEngineSettings::LocalContentCanAccessFileUrls, QWebEngineSettings::PluginsEnabled,
              QWebEngineSettings::LocalStorageEnabled, QWebEngineSettings::AutoLoadIconsForPage,
              QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::WebGLEnabled})
            settings.setAttribute(attribute, false);
        view_.setPage(&page_);
        view_.setContextMenuPolicy(Qt::NoContextMenu);
        view_.setAcceptDrops(false); // a dropped file is opened by the frame
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&view_);
        setFocusProxy(&view_);
    }

    void Show(const QString& path) override {
        filter_.shown = QUrl::fromLocalFile(path);
        page_.load(filter_.shown);
    }

private:
    OnlyThisFile filter_;
    QWebEngineProfile profile_; // made before the page, and so goes behind it
    StillPage page_{&profile_};
    QWebEngineView view_;
};

} // namespace

PageView* vantrel_make_page_view(QWidget* parent) {
    return new BrowserPage(parent);
}

} // namespace desktop
