// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/DataTypes.h"

namespace exchange {

namespace {

// ODBC's number of an SQL type, and that of the type of data.
constexpr struct {
    int sql, data;
} kTypes[] = {
    {1, adChar},         {2, adNumeric},  {3, adDecimal},    {4, adInteger},        {5, adSmallInt},
    {6, adDouble},       {7, adSingle},   {8, adDouble},     {9, adDBDate},         {10, adDBTime},
    {11, adDBTimeStamp}, {12, adVarChar}, {91, adDBDate},    {92, adDBTime},        {93, adDBTimeStamp},
    {-1, adLongVarChar}, {-2, adBinary},  {-3, adVarBinary}, {-4, adLongVarBinary}, {-5, adBigInt},
    {-6, adTinyInt},     {-7, adBoolean}, {-8, adWChar},     {-9, adVarWChar},      {-10, adLongVarWChar},
    {-11, adGUID},
};

// Types by the beginning of the database's own word: some drivers give their values as texts.
constexpr struct {
    const char* word;
    int data;
} kWords[] = {{"bool", adBoolean}, {"decimal", adNumeric}, {"numeric", adNumeric}, {"uuid", adGUID}};

constexpr struct {
    int type;
    TypeForm form;
} kForms[] = {
    {adEmpty, {TypeForm::Nothing}},
    {adIDispatch, {TypeForm::Nothing}},
    {adError, {TypeForm::Nothing}},
    {adVariant, {TypeForm::Nothing}},
    {adIUnknown, {TypeForm::Nothing}},
    {adUserDefined, {TypeForm::Nothing}},
    {adSmallInt, {TypeForm::Named, "xsd:integer"}},
    {adInteger, {TypeForm::Named, "xsd:integer"}},
    {adTinyInt, {TypeForm::Named, "xsd:integer"}},
    {adUnsignedTinyInt, {TypeForm::Named, "xsd:integer"}},
    {adUnsignedSmallInt, {TypeForm::Named, "xsd:integer"}},
    {adUnsignedInt, {TypeForm::Named, "xsd:integer"}},
    {adBigInt, {TypeForm::Named, "xsd:integer"}},
    {adUnsignedBigInt, {TypeForm::Named, "xsd:unsignedLong"}},
    {adSingle, {TypeForm::Named, "xsd:float"}},
    {adDouble, {TypeForm::Named, "xsd:double"}},
    {adCurrency, {TypeForm::Named, "xsd:decimal"}},
    {adDecimal, {TypeForm::Named, "xsd:decimal"}},
    {adNumeric, {TypeForm::Named, "xsd:decimal"}},
    {adDate, {TypeForm::Named, "xsd:dateTime"}},
    {adDBDate, {TypeForm::Named, "xsd:dateTime"}},
    {adDBTime, {TypeForm::Named, "xsd:dateTime"}},
    {adDBTimeStamp, {TypeForm::Named, "xsd:dateTime"}},
    {adBoolean, {TypeForm::Named, "xsd:boolean"}},
    {adGUID, {TypeForm::Named, "xsd:ID"}},
    {adBinary, {TypeForm::Named, "xsd:hexBinary"}},
    {adVarBinary, {TypeForm::Named, "xsd:hexBinary"}},
    {adLongVarBinary, {TypeForm::Named, "xsd:hexBinary"}},
    {adBSTR, {TypeForm::String}},
    {adChar, {TypeForm::String}},
    {adWChar, {TypeForm::String}},
    {adVarChar, {TypeForm::String}},
    {adLongVarChar, {TypeForm::String}},
    {adVarWChar, {TypeForm::String}},
    {adLongVarWChar, {TypeForm::String}},
};

constexpr struct {
    int type;
    const char* name;
} kExact[] = {{adDBDate, "xsd:date"}, {adDBTime, "xsd:time"}, {adGUID, "xsd:string"}};

} // namespace

int DataTypeOf(const services::DatabaseColumn& column) {
    if (column.type == -5 && column.typeName.contains(QStringLiteral("unsigned"), Qt::CaseInsensitive))
        return adUnsignedBigInt;
    for (const auto& known : kWords) {
        if (column.typeName.startsWith(QLatin1String(known.word), Qt::CaseInsensitive))
            return known.data;
    }
    for (const auto& known : kTypes) {
        if (known.sql == column.type)
            return known.data;
    }
    return -1;
}

TypeForm FormOfType(int type, bool exact) {
    for (const auto& known : kExact) {
        if (exact && known.type == type)
            return {TypeForm::Named, known.name};
    }
    for (const auto& known : kForms) {
        if (known.type == type)
            return known.form;
    }
    return {};
}

} // namespace exchange
