// SPDX-License-Identifier: GPL-3.0-or-later
// What nearly every file of the house includes.
#pragma once
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>
