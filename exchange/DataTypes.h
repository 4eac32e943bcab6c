// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Databases.h"

// The types of data that schemas are made by, under their published numbers.
namespace exchange {

enum DataType {
    adEmpty = 0,
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBSTR = 8,
    adIDispatch = 9,
    adError = 10,
    adBoolean = 11,
    adVariant = 12,
    adIUnknown = 13,
    adDecimal = 14,
    adTinyInt = 16,
    adUnsignedTinyInt = 17,
    adUnsignedSmallInt = 18,
    adUnsignedInt = 19,
    adBigInt = 20,
    adUnsignedBigInt = 21,
    adGUID = 72,
    adBinary = 128,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adUserDefined = 132,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
    adLongVarWChar = 203,
    adVarBinary = 204,
    adLongVarBinary = 205
};

/// The number of a column's SQL type among them; -1 for one that has none.
int DataTypeOf(const services::DatabaseColumn& column);

/// How a type is written in a schema.
struct TypeForm {
    enum Kind { Unknown, Nothing, Named, String } kind = Unknown;
    const char* name = ""; ///< of the schema's type
};

/// `exact`: days and times of day get types of their own, and what can't be an identifier isn't called one.
TypeForm FormOfType(int type, bool exact);

} // namespace exchange
