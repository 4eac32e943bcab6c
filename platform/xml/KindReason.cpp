// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/KindReason.h"
#include "platform/xml/ErrorCodes.h"
#include <algorithm>
#include <iterator>
#include <libxml/xmlerror.h>

namespace xml {

namespace {

struct Kind {
    int code;
    const char* sentence;
};

// The parser library has words of its own for each, in terms of its routines: these never reach a user.
constexpr Kind kKinds[] = {
    // content and tags
    {XML_ERR_INVALID_CHAR, "A character or number reference stands there that is not allowed in XML."},
    {XML_ERR_INVALID_HEX_CHARREF, "A number reference holds something other than digits."},
    {XML_ERR_INVALID_DEC_CHARREF, "A number reference holds something other than digits."},
    {XML_ERR_INVALID_CHARREF, "A number reference holds something other than digits."},
    {XML_ERR_ENTITYREF_SEMICOL_MISSING, "An entity reference lacks its ';'."},
    {XML_ERR_UNDECLARED_ENTITY, "It refers to an entity that is not declared."},
    {XML_ERR_ENTITY_IS_EXTERNAL, "It refers to an entity that lies outside the document."},
    {XML_ERR_LT_IN_ATTRIBUTE, "The character '<' cannot stand in an attribute value."},
    {XML_ERR_ATTRIBUTE_NOT_STARTED, "An attribute value must start with a quotation mark."},
    {XML_ERR_ATTRIBUTE_NOT_FINISHED, "An attribute value lacks its closing quotation mark."},
    {XML_ERR_ATTRIBUTE_WITHOUT_VALUE, "An attribute has no value."},
    {XML_ERR_ATTRIBUTE_REDEFINED, "An attribute stands twice in one tag."},
    {XML_ERR_COMMENT_NOT_FINISHED, "A comment is not closed: '-->' is missing."},
    {XML_ERR_HYPHEN_IN_COMMENT, "The characters '--' cannot stand in a comment."},
    {XML_ERR_PI_NOT_STARTED, "A processing instruction must start with a name."},
    {XML_ERR_PI_NOT_FINISHED, "A processing instruction is not closed: '?>' is missing."},
    {XML_ERR_CDATA_NOT_FINISHED, "A CDATA section is not closed: ']]>' is missing."},
    {XML_ERR_MISPLACED_CDATA_END, "The characters ']]>' cannot stand in a text."},
    {XML_ERR_RESERVED_XML_NAME, "An XML declaration can stand only at the very start of the document."},
    {XML_ERR_TAG_NAME_MISMATCH, "An end tag does not match its start tag."},
    {XML_ERR_TAG_NOT_FINISHED, "An element is not closed: its end tag is missing."},
    {XML_ERR_NOT_WELL_BALANCED, "It holds a start tag without its end tag, or an end tag without its start."},
    {XML_ERR_GT_REQUIRED, "A tag or declaration is not closed: '>' is missing."},
    {XML_ERR_LT_REQUIRED, "A '<' is missing."},
    {XML_ERR_LTSLASH_REQUIRED, "An end tag is missing."},
    {XML_ERR_EQUAL_REQUIRED, "A '=' is missing."},
    {XML_ERR_SPACE_REQUIRED, "A blank is missing."},
    {XML_ERR_NAME_REQUIRED, "A name is missing, or starts with a character that no name starts with."},
    {XML_ERR_NAME_TOO_LONG, "A name is too long."},
    {XML_ERR_EXTRA_CONTENT, "Something stands behind its end."},
    // the document type declaration
    {XML_ERR_PEREF_IN_INT_SUBSET, "A parameter entity cannot be referred to inside a declaration."},
    {XML_ERR_ENTITY_PE_INTERNAL, "A parameter entity cannot be referred to inside a declaration."},
    {XML_ERR_ENTITY_IS_PARAMETER, "A parameter entity cannot be referred to here."},
    {XML_ERR_ENTITY_CHAR_ERROR, "The character '%' in the value of an entity must start a reference."},
    {XML_ERR_PEREF_NO_NAME, "The character '%' must start a reference to a parameter entity."},
    {XML_ERR_PEREF_SEMICOL_MISSING, "A reference to a parameter entity lacks its ';'."},
    {XML_ERR_ENTITY_NOT_STARTED, "The value of an entity must start with a quotation mark."},
    {XML_ERR_ENTITY_NOT_FINISHED,
     "The declaration of an entity lacks its closing quotation mark or its closing '>'."},
    {XML_ERR_ENTITY_BOUNDARY, "A declaration must start and end in the same entity."},
    {XML_ERR_ENTITY_LOOP, "Entities refer to themselves, or are nested too deep."},
    {XML_ERR_VALUE_REQUIRED, "The declaration of an entity lacks its value."},
    {XML_ERR_URI_REQUIRED, "The address of something outside the document is missing."},
    {XML_ERR_URI_FRAGMENT, "The address of an entity cannot have a part behind '#'."},
    {XML_ERR_PUBID_REQUIRED, "The public identifier behind 'PUBLIC' is missing."},
    {XML_ERR_LITERAL_NOT_STARTED, "An address or public identifier must start with a quotation mark."},
    {XML_ERR_LITERAL_NOT_FINISHED,
     "An address or public identifier lacks its closing quotation mark, or holds "
     "a character that cannot stand in it."},
    {XML_ERR_NOTATION_NOT_STARTED, "The name of a notation is missing, or the '(' of a list of them."},
    {XML_ERR_NOTATION_NOT_FINISHED, "The declaration of a notation is not closed: '>' is missing."},
    {XML_ERR_ATTLIST_NOT_STARTED, "The type of an attribute is missing, or the '(' of its values."},
    {XML_ERR_ATTLIST_NOT_FINISHED, "The list of an attribute's values lacks a '|' or its ')'."},
    {XML_ERR_NMTOKEN_REQUIRED, "The list of an attribute's values lacks a value."},
    {XML_ERR_MIXED_NOT_STARTED, "Behind '#PCDATA' '|', ')' or ')*' must stand."},
    {XML_ERR_MIXED_NOT_FINISHED, "Behind '#PCDATA' '|', ')' or ')*' must stand."},
    {XML_ERR_PCDATA_REQUIRED, "In a content with text '#PCDATA' must be the first."},
    {XML_ERR_ELEMCONTENT_NOT_STARTED,
     "The content of an element must be 'EMPTY', 'ANY' or a list that starts with '('."},
    {XML_ERR_ELEMCONTENT_NOT_FINISHED, "The content of an element lacks a ',', a '|' or its ')'."},
    {XML_ERR_SEPARATOR_REQUIRED, "The parts of a list must all be divided by ',' or all by '|'."},
    {XML_ERR_EXT_SUBSET_NOT_FINISHED, "The document type declaration is not closed."},
    {XML_ERR_DOCTYPE_NOT_FINISHED,
     "The document type declaration holds something that is not a declaration."},
    // what is found here
    {kErrorReservedTarget, "A processing instruction has a name that is reserved."},
    {kErrorDepth, "The elements are nested too deep: more than 5000 levels."},
    {kErrorManyAttributes, "The element has too many attributes, or too long ones."},
    {kErrorComparedAttributes, "Too many elements have hundreds or thousands of attributes."},
    {kErrorManyNames, "The document has too many different names: more than 100000."},
    {kErrorLongDeclaration, "A declaration inside the document type declaration is too long."},
    {kErrorDefaults, "The default values of attributes amount to too much text."},
    {kErrorNotation, "A notation must be declared with 'SYSTEM' or 'PUBLIC'."},
    {kErrorByteOrderMark, "A byte-order mark can stand only once, at the very start of a file."},
    {kErrorStopped, "Reading the document was stopped."},
};

} // namespace

QString KindReason(int code) {
    const Kind* kind =
        std::find_if(std::begin(kKinds), std::end(kKinds), [code](const Kind& k) { return k.code == code; });
    return kind == std::end(kKinds) ? QStringLiteral("The text is not well-formed.")
                                    : QString::fromLatin1(kind->sentence);
}

} // namespace xml
