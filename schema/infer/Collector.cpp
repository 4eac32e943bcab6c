// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/Collector.h"
#include "core/model/AttributeWalk.h"
#include "core/model/Escaping.h"
#include <algorithm>

namespace schema {

namespace {

using m_tvXML::AttributeWalk;
using text::CompactView;

// As bytes that tell names apart; wide ones behind a mark of their own.
void Bytes(CompactView view, std::string& out) {
    if (view.wide)
        out = '\x01' + view.toString().toUtf8().toStdString();
    else
        out.assign(reinterpret_cast<const char*>(view.data), view.length);
}

bool BeginsWith(CompactView view, std::string_view beginning) {
    if (view.length < beginning.size())
        return false;
    for (std::uint32_t i = 0; i < beginning.size(); ++i) {
        if (view.at(i) != static_cast<unsigned char>(beginning[i]))
            return false;
    }
    return true;
}

bool IsBlank(CompactView view) {
    for (std::uint32_t i = 0; i < view.length; ++i) {
        const char16_t letter = view.at(i);
        if (letter != u' ' && letter != u'\t' && letter != u'\n' && letter != u'\r')
            return false;
    }
    return true;
}

CompactView ViewOf(const std::u16string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), static_cast<std::uint32_t>(text.size()),
            true};
}

} // namespace

bool Collector::Open(CompactView name, CompactView attributes) {
    const std::size_t spaces = prefixes_.size();
    Declare(attributes);
    const std::uint32_t number = ElementOf(name);
    if (facts_.tooMany)
        return false;
    ElementFacts& element = *facts_.elements[number];
    ++element.all;
    if (depth_ > 0) {
        element.parents.insert(frames_[depth_ - 1].element);
        AddChild(frames_[depth_ - 1], number);
    } else if (!std::exchange(element.root, true)) {
        facts_.roots.push_back(number);
    }
    if (frames_.size() == depth_)
        frames_.emplace_back();
    Frame& frame = frames_[depth_++];
    frame.element = number;
    frame.last = 0;
    frame.hasText = frame.isNil = false;
    frame.text = {};
    frame.joined.clear();
    frame.touched.clear();
    frame.counts.assign(element.order.children.size(), 0);
    frame.spaces = spaces;
    AddAttributes(element, attributes, frame);
    return true;
}

// What is declared changes what names mean, and so what is known of them.
void Collector::Declare(CompactView attributes) {
    const std::string_view bytes(reinterpret_cast<const char*>(attributes.data),
                                 attributes.wide ? 0 : attributes.length);
    if (!attributes.wide && bytes.find("xmlns") == std::string_view::npos)
        return; // nearly all
    AttributeWalk walk(attributes);
    while (walk.next()) {
        if (!BeginsWith(walk.name(), "xmlns"))
            continue;
        const QString name = walk.name().toString();
        if (name.size() > 5 && name[5] != u':')
            continue;
        prefixes_.push_back({name.mid(6), mXMLEdit::WithoutReferences(walk.value().toString())});
        known_.clear();
        attributes_.clear();
    }
}

ExpandedName Collector::Expanded(const QString& name, bool attribute) const {
    const qsizetype colon = name.indexOf(u':');
    const QString prefix = name.left(std::max<qsizetype>(colon, 0)), local = name.mid(colon + 1);
    if (prefix == QLatin1String("xml"))
        return {QLatin1String(DocumentFacts::kXml), local};
    if (prefix.isEmpty() && attribute)
        return {{}, local};
    for (auto one = prefixes_.rbegin(); one != prefixes_.rend(); ++one) {
        if (one->prefix == prefix)
            return {one->space, local};
    }
    return {{}, local};
}

std::uint32_t Collector::ElementOf(CompactView name) {
    Bytes(name, scratch_);
    const auto found = known_.find(scratch_);
    if (found != known_.end())
        return found->second;
    const std::uint32_t number = facts_.NumberOf(Expanded(name.toString(), false));
    known_.emplace(scratch_, number);
    return number;
}

void Collector::AddChild(Frame& parent, std::uint32_t element) {
    OrderFacts& order = facts_.elements[parent.element]->order;
    const std::uint32_t child = order.NumberOf(element);
    if (child >= parent.counts.size())
        parent.counts.resize(order.children.size(), 0);
    if (parent.counts[child]++ == 0)
        parent.touched.push_back(child);
    if (!order.IsWide() && parent.last > 0)
        order.follows[parent.last - 1][child] = true;
    parent.last = child + 1;
}

std::uint32_t Collector::ValuesOf(const ExpandedName& name, const ElementFacts::AttributeFacts& facts) {
    if (facts.count > 0)
        return facts.values;
    if (!name.space.isEmpty()) {
        const auto found = facts_.globalAttributes.find(name);
        if (found != facts_.globalAttributes.end())
            return found->second;
    }
    const auto number = static_cast<std::uint32_t>(facts_.values.size());
    facts_.values.push_back(std::make_unique<ValueFacts>());
    if (!name.space.isEmpty())
        facts_.globalAttributes.emplace(name, number);
    return number;
}

void Collector::AddAttributes(ElementFacts& element, CompactView attributes, Frame& frame) {
    if (attributes.length == 0)
        return;
    if (attributes_.size() <= frame.element)
        attributes_.resize(frame.element + 1);
    AttributeWalk walk(attributes);
    while (walk.next()) {
        Bytes(walk.name(), scratch_);
        const auto [at, added] = attributes_[frame.element].try_emplace(scratch_);
        KnownAttribute& known = at->second;
        if (added) {
            const QString written = walk.name().toString();
            const ExpandedName name = Expanded(written, true);
            if (written == QLatin1String("xmlns") || written.startsWith(QLatin1String("xmlns:")))
                known.kind = KnownAttribute::Passed;
            else if (facts_.IsXsi(name.space))
                known.kind = name.local == QLatin1String("nil")    ? KnownAttribute::Nil
                             : name.local == QLatin1String("type") ? KnownAttribute::Type
                                                                   : KnownAttribute::Passed;
            else {
                known.facts = &element.attributes[name];
                known.facts->values = ValuesOf(name, *known.facts);
                known.values = facts_.values[known.facts->values].get();
            }
        }
        if (known.kind == KnownAttribute::Counted) {
            ++known.facts->count;
            if (walk.value().length == 0)
                known.values->AddEmpty();
            else
                known.values->Add(walk.value());
        } else if (known.kind == KnownAttribute::Nil) {
            const QString value = walk.value().toString().trimmed();
            frame.isNil = value == QLatin1String("true") || value == QLatin1String("1");
            element.nil = true;
        } else if (known.kind == KnownAttribute::Type) {
            element.typed = true;
        }
    }
}

void Collector::Text(CompactView text, bool plain) {
    if (depth_ == 0)
        return;
    Frame& frame = frames_[depth_ - 1];
    if (!frame.hasText && !plain) {
        frame.hasText = true;
        frame.text = text;
        return;
    }
    if (frame.joined.empty() && frame.text.length > 0) {
        const QString before = frame.text.toString();
        frame.joined.assign(before.utf16(), before.utf16() + before.size());
    }
    const QString more = plain ? mXMLEdit::convertStringToXML(text.toString()) : text.toString();
    frame.joined.append(more.utf16(), more.utf16() + more.size());
    frame.hasText = true;
    frame.text = ViewOf(frame.joined);
}

void Collector::Close() {
    Frame& frame = frames_[--depth_];
    if (!frame.isNil)
        EndContent(frame);
    if (prefixes_.size() > frame.spaces) {
        prefixes_.resize(frame.spaces);
        known_.clear();
        attributes_.clear();
    }
}

void Collector::EndContent(Frame& frame) {
    ElementFacts& element = *facts_.elements[frame.element];
    ++element.count;
    EndText(element, frame);
    OrderFacts& order = element.order;
    for (const std::uint32_t child : frame.touched) {
        ChildFacts& facts = order.children[child];
        const std::uint32_t count = frame.counts[child];
        facts.least = facts.parents == 0 ? count : std::min(facts.least, count);
        facts.most = std::max(facts.most, count);
        ++facts.parents;
    }
    if (!order.children.empty() && !order.manyProfiles)
        AddProfile(order, frame);
}

void Collector::EndText(ElementFacts& element, Frame& frame) {
    // The parser drops blank text as a rule; kept beside children it is but their indentation.
    const bool text = frame.hasText && (frame.touched.empty() || !IsBlank(frame.text));
    element.text = element.text || text;
    element.mixed = element.mixed || (text && !frame.touched.empty());
    if (!frame.touched.empty() || !element.order.children.empty())
        return;
    if (text)
        element.values.Add(frame.text);
    else
        element.values.AddEmpty();
}

void Collector::AddProfile(OrderFacts& order, Frame& frame) {
    profile_.clear();
    for (const std::uint32_t child : frame.touched)
        profile_.push_back(2 * child + (frame.counts[child] > 1 ? 1 : 0));
    std::sort(profile_.begin(), profile_.end());
    if (order.profiles.contains(profile_))
        return;
    order.profiles.insert(profile_);
    order.manyProfiles = order.profiles.size() > OrderFacts::kMostProfiles;
}

} // namespace schema
