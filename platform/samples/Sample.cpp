// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Sample.h"
#include "platform/samples/Identity.h"
#include <algorithm>
#include <chrono>

namespace samples {

namespace {

using Text = std::u16string;

constexpr double kMostElements = 300000; // of the smallest instance
constexpr int kTries = 6;
constexpr std::chrono::seconds kTime(8); // no try begins later

// A declaration that no content and no group names: those are what documents begin with.
class Roots {
public:
    explicit Roots(Components& components) : components_(components) {
        for (XSElementDeclaration* const one : components.Elements()) {
            if (const XSComplexTypeDefinition* const type = AsComplex(one->getTypeDefinition()))
                Walk(type);
        }
    }
    XSElementDeclaration* Choose(const Text& space) const {
        XSElementDeclaration* best = nullptr;
        for (XSElementDeclaration* const one : components_.Elements()) {
            const bool free = !named_.contains(one) && !one->getSubstitutionGroupAffiliation();
            if (TextOf(one->getNamespace()) != space || one->getAbstract())
                continue;
            if (!best || (free && named_.contains(best)))
                best = one;
        }
        return best;
    }

private:
    void Walk(const XSComplexTypeDefinition* type) {
        std::vector<const XSComplexTypeDefinition*> open{type};
        while (!open.empty()) {
            const XSComplexTypeDefinition* const at = open.back();
            open.pop_back();
            if (met_.insert(at).second && at->getParticle())
                Walk(*at->getParticle(), open);
        }
    }
    void Walk(XSParticle& particle, std::vector<const XSComplexTypeDefinition*>& open) {
        if (particle.getTermType() == XSParticle::TERM_ELEMENT) {
            XSElementDeclaration* const element = particle.getElementTerm();
            named_.insert(element);
            if (const XSComplexTypeDefinition* const type = AsComplex(element->getTypeDefinition()))
                open.push_back(type);
        }
        if (particle.getTermType() != XSParticle::TERM_MODELGROUP)
            return;
        xercesc::XSParticleList* const parts = particle.getModelGroupTerm()->getParticles();
        for (XMLSize_t i = 0; parts && i < parts->size(); ++i)
            Walk(*parts->elementAt(i), open);
    }

    Components& components_;
    std::set<const XSComplexTypeDefinition*> met_;
    std::set<XSElementDeclaration*> named_;
};

/// The tries of one sample.
class Maker {
public:
    Maker(xercesc::XMLGrammarPool& pool, xercesc::XSModel& model, const Wish& wish)
        : components_(model), pool_(pool), wish_(wish) {}

    Outcome Make(const std::function<Text(const Text&)>& faultOf) {
        XSElementDeclaration* const root = Root();
        if (!root)
            return {{}, {u"The schema has no element that a document could begin with."}};
        const auto begin = std::chrono::steady_clock::now();
        Text fault;
        for (int number = 0; number < kTries && std::chrono::steady_clock::now() - begin < kTime; ++number) {
            const Amount amount = number < 2        ? wish_.amount
                                  : number % 2 == 0 ? Amount::Minimal
                                                    : Amount::Typical;
            const Text text = Try(*root, amount, wish_.seed + static_cast<std::uint64_t>(number));
            if (text.empty())
                break;
            fault = faultOf(text);
            if (fault.empty())
                return {text, amount == wish_.amount ? std::vector<Text>() : Simpler()};
        }
        if (lacks_.empty() && !fault.empty())
            lacks_.insert(u"The check refuses what was made: " + fault);
        return {{}, {lacks_.begin(), lacks_.end()}};
    }

private:
    static std::vector<Text> Simpler() {
        return {u"No sample with so much in it was found: this one has less."};
    }

    XSElementDeclaration* Root() {
        if (!wish_.root.empty())
            return components_.Element(wish_.rootSpace, wish_.root);
        return Roots(components_).Choose(wish_.rootSpace);
    }

    static Text WhyNone(XSElementDeclaration& root, double cost) {
        const Text name = u'"' + TextOf(root.getName()) + u'"';
        if (root.getAbstract())
            return name + u" is abstract.";
        return cost >= Costs::kEndless
                   ? name + u" has no finite instance: its content needs itself, or what can't be had."
                   : u"The smallest instance of " + name + u" is too large.";
    }

    // Empty where there can be none; what is lacking is told.
    Text Try(XSElementDeclaration& root, Amount amount, std::uint64_t seed) {
        lacks_.clear();
        SimpleValues values(pool_, seed);
        const Costs costs(components_, root, empty_);
        if (root.getAbstract() || costs.Of(root) > kMostElements) {
            lacks_ = before_;
            if (lacks_.empty())
                lacks_.insert(WhyNone(root, costs.Of(root)));
            return {};
        }
        Builder builder(components_, values, costs, amount, seed);
        const std::unique_ptr<Element> made = builder.Build(root);
        lacks_ = before_ = builder.Lacks();
        empty_.insert(builder.Empty().begin(), builder.Empty().end());
        SettleReferences(*made, values, lacks_);
        SettleKeys(*made, values, lacks_);
        return TextOf(*made, wish_.binding);
    }

    Components components_;
    xercesc::XMLGrammarPool& pool_;
    const Wish& wish_;
    std::set<SimpleType*> empty_; ///< no value was found for: other ways are gone then
    std::set<Text> lacks_, before_;
};

} // namespace

Outcome MakeSample(xercesc::XMLGrammarPool& pool, const Wish& wish,
                   const std::function<Text(const Text&)>& faultOf) {
    bool changed = false;
    xercesc::XSModel* const model = pool.getXSModel(changed);
    if (!model)
        return {{}, {u"The schema can't be read."}};
    return Maker(pool, *model, wish).Make(faultOf);
}

} // namespace samples
