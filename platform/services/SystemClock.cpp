// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RealServices.h"
#include <QTime>

namespace services {

namespace {

class SystemClock : public Clock {
public:
    int MillisecondOfHour() override {
        constexpr int kHour = 3'600'000;
        return QTime::currentTime().msecsSinceStartOfDay() % kHour;
    }
};

} // namespace

std::unique_ptr<Clock> MakeClock() {
    return std::make_unique<SystemClock>();
}

} // namespace services
