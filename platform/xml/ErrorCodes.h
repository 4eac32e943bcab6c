// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace xml {

// Kinds of errors that are found here; all others carry the parser library's number, which is stable as well.
inline constexpr int kErrorMemory = 10000;             ///< memory ran out
inline constexpr int kErrorUndeclaredEntity = 10001;   ///< a reference to an entity that is not declared
inline constexpr int kErrorExternalEntity = 10002;     ///< a reference to an entity outside the document
inline constexpr int kErrorExpansion = 10003;          ///< the entities expand to too much
inline constexpr int kErrorDepth = 10004;              ///< elements stand too deep in each other
inline constexpr int kErrorManyAttributes = 10005;     ///< one element has too many attributes
inline constexpr int kErrorReservedTarget = 10006;     ///< an instruction with a target such as XML
inline constexpr int kErrorUnexpected = 10007;         ///< the parser gave up without a word
inline constexpr int kErrorDefaults = 10008;           ///< the defaults of attributes amount to too much
inline constexpr int kErrorManyNames = 10009;          ///< there are too many different names
inline constexpr int kErrorParameterEntity = 10010;    ///< the document type declaration expands to too much
inline constexpr int kErrorLongDeclaration = 10011;    ///< one declaration in it is too long
inline constexpr int kErrorComparedAttributes = 10012; ///< too many elements have many attributes
inline constexpr int kErrorStopped = 10013;            ///< who asked for the parse stopped it
inline constexpr int kErrorNotation = 10014;           ///< a notation with neither SYSTEM nor PUBLIC
inline constexpr int kErrorByteOrderMark = 10015;      ///< a byte-order mark in front of the document

// What the rules for namespaces refuse.
inline constexpr int kErrorTwoColons = 10020;      ///< a name with more than one colon
inline constexpr int kErrorNoPrefix = 10021;       ///< a name with nothing in front of its colon
inline constexpr int kErrorNoLocalPart = 10022;    ///< a name with nothing behind its colon
inline constexpr int kErrorLocalPart = 10023;      ///< what is behind the colon cannot start a name
inline constexpr int kErrorColon = 10024;          ///< a colon in a name that has no prefix
inline constexpr int kErrorUnboundPrefix = 10025;  ///< a prefix without a declaration
inline constexpr int kErrorSameAttribute = 10026;  ///< one attribute under two prefixes
inline constexpr int kErrorXmlPrefix = 10027;      ///< "xml" declared for another namespace
inline constexpr int kErrorXmlNamespace = 10028;   ///< another prefix declared for that of "xml"
inline constexpr int kErrorXmlnsPrefix = 10029;    ///< "xmlns" declared
inline constexpr int kErrorXmlnsElement = 10030;   ///< an element with the prefix "xmlns"
inline constexpr int kErrorXmlnsNamespace = 10031; ///< the namespace of "xmlns" declared
inline constexpr int kErrorEmptyNamespace = 10032; ///< a prefix declared with an empty value

/// Whether the code is one of the rules for namespaces.
constexpr bool IsNamespaceError(int code) {
    return code >= kErrorTwoColons && code <= kErrorEmptyNamespace;
}

} // namespace xml
