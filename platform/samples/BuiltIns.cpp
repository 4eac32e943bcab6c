// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/BuiltIns.h"
#include <array>
#include <cstdio>
#include <map>
#include <set>

namespace samples {

namespace {

constexpr char16_t kZone[] = u"(Z|[+\\-](0[0-9]|1[0-3]):[0-5][0-9])?";
constexpr char16_t kYear[] = u"-?([1-9][0-9]{3,5}|0[0-9]{2}[1-9])";
constexpr char16_t kMonth[] = u"(0[1-9]|1[0-2])";
constexpr char16_t kDay[] = u"(0[1-9]|1[0-9]|2[0-8])";
constexpr char16_t kTime[] = u"([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9](\\.[0-9]+)?";
constexpr char16_t kInteger[] = u"[\\-+]?[0-9]+";

std::u16string Joined(std::initializer_list<std::u16string> parts) {
    std::u16string all;
    for (const std::u16string& part : parts)
        all += part;
    return all;
}

BuiltIn Integers(std::vector<std::u16string> usual) {
    return {std::move(usual), kInteger};
}

BuiltIn Names(const char16_t* expression) {
    return {{u"name", u"a", u"item"}, expression, true};
}

BuiltIn Reals() {
    return {{u"1.5", u"1", u"0", u"-1", u"1.5E0", u"INF", u"-INF", u"NaN"},
            u"[\\-+]?([0-9]+(\\.[0-9]*)?|\\.[0-9]+)([Ee][\\-+]?[0-9]{1,2})?|-?INF|NaN"};
}

std::map<std::u16string, BuiltIn> TextTypes() {
    return {
        {u"string", {{u"text", u"a", u""}, u"", true}},
        {u"normalizedString", {{u"text", u"a", u""}, u"[^\\t\\n\\r]*", true}},
        {u"token", {{u"text", u"a", u""}, u"([^\\s]+( [^\\s]+)*)?", true}},
        {u"language", {{u"en", u"de", u"fr", u"zh-CN", u"x"}, u"[a-zA-Z]{1,8}(-[a-zA-Z0-9]{1,8})*", true}},
        {u"Name", Names(u"[a-zA-Z_:][a-zA-Z0-9_:.\\-]*")},
        {u"NCName", Names(u"[a-zA-Z_][a-zA-Z0-9_.\\-]*")},
        {u"ID", Names(u"[a-zA-Z_][a-zA-Z0-9_.\\-]*")},
        {u"IDREF", Names(u"[a-zA-Z_][a-zA-Z0-9_.\\-]*")},
        {u"ENTITY", Names(u"[a-zA-Z_][a-zA-Z0-9_.\\-]*")},
        {u"NMTOKEN", {{u"name", u"a", u"1"}, u"[a-zA-Z0-9_.\\-:]+", true}},
        {u"QName", {{u"name", u"a"}, u"[a-zA-Z_][a-zA-Z0-9_.\\-]*"}},
        {u"anyURI", {{u"http://example.org/", u"a", u"urn:a"}, u"[a-zA-Z0-9:/.?#=_\\-&;,+~@]*", true}},
        {u"boolean", {{u"true", u"false", u"1", u"0"}, u"true|false|1|0"}},
        {u"hexBinary", {{u"0A1B", u"00", u""}, u"([0-9a-fA-F]{2})*"}},
        {u"base64Binary", {{u"dGV4dA==", u"AAAA", u""}, u"([A-Za-z0-9+/]{4})*([A-Za-z0-9+/][AQgw]==)?"}},
    };
}

std::map<std::u16string, BuiltIn> NumberTypes() {
    std::map<std::u16string, BuiltIn> all = {
        {u"decimal",
         {{u"1.5", u"1", u"0", u"-1", u"0.1", u"0.01", u"10", u"100"},
          u"[\\-+]?([0-9]+(\\.[0-9]*)?|\\.[0-9]+)"}},
        {u"float", Reals()},
        {u"double", Reals()},
    };
    for (const char16_t* name : {u"integer", u"long", u"int", u"short", u"byte"})
        all[name] = Integers({u"1", u"0", u"-1", u"10", u"100"});
    for (const char16_t* name : {u"nonNegativeInteger", u"positiveInteger", u"unsignedLong", u"unsignedInt",
                                 u"unsignedShort", u"unsignedByte"})
        all[name] = Integers({u"1", u"0", u"10", u"100"});
    for (const char16_t* name : {u"nonPositiveInteger", u"negativeInteger"})
        all[name] = Integers({u"-1", u"0", u"-10"});
    return all;
}

std::map<std::u16string, BuiltIn> TimeTypes() {
    return {
        {u"dateTime",
         {{u"2024-01-15T12:30:00", u"2024-01-15T12:30:00Z"},
          Joined({kYear, u"-", kMonth, u"-", kDay, u"T", kTime, kZone})}},
        {u"date", {{u"2024-01-15", u"2024-01-15Z"}, Joined({kYear, u"-", kMonth, u"-", kDay, kZone})}},
        {u"time", {{u"12:30:00", u"12:30:00Z"}, Joined({kTime, kZone})}},
        {u"gYear", {{u"2024", u"2024Z"}, Joined({kYear, kZone})}},
        {u"gYearMonth", {{u"2024-01", u"2024-01Z"}, Joined({kYear, u"-", kMonth, kZone})}},
        {u"gMonth", {{u"--01", u"--01Z"}, Joined({u"--", kMonth, kZone})}},
        {u"gMonthDay", {{u"--01-15", u"--01-15Z"}, Joined({u"--", kMonth, u"-", kDay, kZone})}},
        {u"gDay", {{u"---15", u"---15Z"}, Joined({u"---", kDay, kZone})}},
        {u"duration",
         {{u"P1D", u"PT1H", u"P1M", u"P1Y", u"PT1S", u"P0D", u"-P1D"},
          u"-?P([0-9]+Y)?([0-9]+M)?([0-9]+D([0-9]+H)?|T[0-9]+H)([0-9]+M)?([0-9]+(\\.[0-9]+)?S)?|"
          u"-?P([0-9]+Y)?([0-9]+M)?([0-9]+D)?(T[0-9]+H([0-9]+M)?([0-9]+S)?)?|-?P[0-9]+[YMD]|-?PT[0-9]+["
          u"HMS]"}},
    };
}

std::map<std::u16string, BuiltIn> AllTypes() {
    std::map<std::u16string, BuiltIn> all = TextTypes();
    all.merge(NumberTypes());
    all.merge(TimeTypes());
    return all;
}

std::u16string Formatted(const char* form, std::size_t a, std::size_t b, std::size_t c) {
    std::array<char, 80> bytes{};
    const int length = std::snprintf(bytes.data(), bytes.size(), form, a, b, c);
    return {bytes.begin(), bytes.begin() + length};
}

} // namespace

const BuiltIn& BuiltInOf(const std::u16string& name) {
    static const std::map<std::u16string, BuiltIn> all = AllTypes();
    const auto found = all.find(name);
    return found == all.end() ? all.at(u"string") : found->second;
}

std::u16string NumberedValue(const std::u16string& name, std::size_t n) {
    static const std::map<std::u16string, const char*> forms = {
        {u"dateTime", "%04zu-%02zu-%02zuT12:30:00"},
        {u"date", "%04zu-%02zu-%02zu"},
        {u"gYearMonth", "%04zu-%02zu"},
        {u"gYear", "%04zu"},
        {u"language", "x-%zu"},
        {u"anyURI", "http://example.org/%zu"},
        {u"duration", "P%zuD"},
    };
    if (const auto form = forms.find(name); form != forms.end()) {
        const bool year = form->second[1] == '0';
        return Formatted(form->second, year ? 1970 + n / 336 : n + 1, n / 28 % 12 + 1, n % 28 + 1);
    }
    if (name == u"time")
        return Formatted("%02zu:%02zu:%02zu", n / 3600 % 24, n / 60 % 60, n % 60);
    if (name == u"gMonthDay")
        return Formatted("--%02zu-%02zu", n / 28 % 12 + 1, n % 28 + 1, 0);
    if (name == u"gMonth" || name == u"gDay")
        return Formatted(name == u"gDay" ? "---%02zu" : "--%02zu", n % (name == u"gDay" ? 31 : 12) + 1, 0, 0);
    if (BuiltInOf(name).expression == kInteger || name == u"decimal" || name == u"float" || name == u"double")
        return (n % 2 == 1 || name.starts_with(u"n") ? u"-" : u"") + Formatted("%zu", n / 2 + 2, 0, 0);
    if (name == u"hexBinary")
        return Formatted("%08zX", n, 0, 0);
    if (name == u"base64Binary")
        return Formatted("%04zu", n, 0, 0);
    return Formatted("name%zu", n + 1, 0, 0);
}

std::u16string ValueOfLength(const std::u16string& name, std::size_t length, std::size_t n) {
    const std::u16string mark = Formatted("%zu", n, 0, 0);
    const auto filled = [&](std::size_t size, char16_t filler) {
        const std::size_t marked = n == 0 || size <= mark.size() ? 0 : mark.size();
        return std::u16string(size - marked, filler) + mark.substr(0, marked);
    };
    if (name == u"hexBinary")
        return filled(2 * length, u'0');
    if (name == u"base64Binary") {
        const std::size_t rest = length % 3;
        const char16_t* const end = rest == 1 ? u"AA==" : rest == 2 ? u"AAA=" : u"";
        return filled(length / 3 * 4, u'A') + end;
    }
    return BuiltInOf(name).hasLength ? filled(length, u'a') : std::u16string();
}

} // namespace samples
