// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Odbc.h"
#include <QString>
#include <vector>

// Values of a column, read as text.
namespace services::odbc {

/// How a column is read, and what is done to the text.
enum class Reading { Text, Decimal, Real, Float, Boolean, Bit, Timestamp, Binary };
Reading ReadingOf(const DatabaseColumn& column, const Session& session);

/// A column of a result. Short values come with the row, where the driver then still gives the long ones
/// whole.
class ColumnReader {
public:
    ColumnReader(SQLUSMALLINT number, Reading reading) : number_(number), reading_(reading) {}
    void Bind(SQLHSTMT handle); ///< the object must stay where it is from now on
    /// Appends the current row's value to `out`; `isNull` tells that there is none. False on a failure.
    bool Read(SQLHSTMT handle, QString& out, bool& isNull);

private:
    static constexpr std::size_t kUnits = 256;
    bool ReadBound(QString& out, bool& isNull) const;
    bool ReadText(SQLHSTMT handle, QString& out, bool& isNull);
    bool ReadNarrow(SQLHSTMT handle, QString& out, bool& isNull);
    bool ReadBinary(SQLHSTMT handle, QString& out, bool& isNull) const;
    bool ReadFloat(SQLHSTMT handle, QString& out, bool& isNull) const;

    SQLUSMALLINT number_;
    Reading reading_;
    bool bound_ = false;
    bool narrow_ = false; ///< the driver has bytes alone
    SQLWCHAR buffer_[kUnits] = {};
    SQLLEN length_ = 0;
};

} // namespace services::odbc
