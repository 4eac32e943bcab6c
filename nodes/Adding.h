// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// What has just been added while the user names or fills it. It isn't in the text before that is done, and
// giving up takes it back: then it leaves no step in the history (quirk 63).
namespace nodes {

/// Where the user was.
struct Origin {
    QString node; ///< key of the current node
    QString row;  ///< of the current row
};
Origin OriginOf(DocumentWindow& window);

/// The node `key`, or its attribute, is about to be named or filled. For the edit that adds it.
void BeginAdding(DocumentWindow& window, const Origin& origin, const QString& key,
                 const QString& attribute = {});
bool IsAdding(DocumentWindow& window, const QString& key);
/// It stays. The text has it when the running edit ends.
void EndAdding(DocumentWindow& window);
/// It goes, and the user is where they were. Nothing happens where nothing is being added.
void TakeBackAdding(DocumentWindow& window);

} // namespace nodes
