// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <memory>
#include <vector>

namespace shell {

/// The open document windows, in the order of opening and in the order in which they lie.
class WindowList {
public:
    DocumentWindow* Front() const { return order_.empty() ? nullptr : order_.front(); }
    int Count() const { return static_cast<int>(windows_.size()); }
    std::vector<DocumentWindow*> All() const; ///< in the order of opening
    /// The one opened last of those with a Tag, exactly as it is spelled; null without one.
    DocumentWindow* Named(const QString& tag) const;

    DocumentWindow& Add(std::unique_ptr<DocumentWindow> window); ///< in front
    void BringToFront(DocumentWindow& window);
    void SendFrontToBack();
    void BringBackToFront();
    std::unique_ptr<DocumentWindow> Take(DocumentWindow& window); ///< it is no longer listed
    void Clear();

private:
    std::vector<std::unique_ptr<DocumentWindow>> windows_;
    std::vector<DocumentWindow*> order_; ///< front first
};

} // namespace shell
