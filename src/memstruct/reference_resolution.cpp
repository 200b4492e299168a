#include "memstruct/reference_resolution.h"

namespace orvell::memstruct {

namespace {

constexpr std::int32_t kMixedSignedness = 0;
constexpr std::int32_t kNoSignedness = -1;

/// Signedness of a structure that has a part of signedness `whole` and one of `part`.
std::int32_t CombineSignedness(std::int32_t whole, std::int32_t part) {
    if (whole == kNoSignedness || whole == part) {
        return part;
    }
    return part == kNoSignedness ? whole : kMixedSignedness;
}

/// Walks the graph of types depth-first, each type once, and completes a type when all types that
/// its elements have are complete. A type that is met again before it is complete closes a cycle.
class TypeResolution {
  public:
    explicit TypeResolution(const values::ValueConverterSet& converters)
        : converters_(converters) {}

    void Run(std::deque<TypeDef>& types);

  private:
    enum class Progress { NotEntered, Open, Complete };

    struct Visit {
        TypeDef* type;
        Progress progress;
    };

    /// A structure on the way from the walk's start to the type at hand.
    struct Step {
        Visit* visit;
        std::size_t nextItem;
    };

    void Enter(Visit& visit);
    void Continue();
    void CompleteSimple(TypeDef& type) const;
    static void CompleteStructured(TypeDef& type);
    static const TypeDef* WrappedBy(const TypeDef& type);

    const values::ValueConverterSet& converters_;
    std::unordered_map<const TypeDef*, Visit> visits_;
    std::vector<Step> way_;
};

void TypeResolution::Run(std::deque<TypeDef>& types) {
    visits_.reserve(types.size());
    for (TypeDef& type : types) {
        type.recursive = false;
        visits_.emplace(&type, Visit{&type, Progress::NotEntered});
    }
    for (const TypeDef& type : types) {
        Enter(visits_.at(&type));
        while (!way_.empty()) {
            Continue();
        }
    }
}

void TypeResolution::Enter(Visit& visit) {
    if (visit.progress == Progress::Open) {
        way_.back().visit->type->recursive = true;
        return;
    }
    if (visit.progress == Progress::Complete) {
        return;
    }
    if (visit.type->IsStructured()) {
        visit.progress = Progress::Open;
        way_.push_back({&visit, 0});
    } else {
        visit.progress = Progress::Complete;
        CompleteSimple(*visit.type);
    }
}

/// Goes on to the innermost structure's next element, or completes the structure.
void TypeResolution::Continue() {
    Step& step = way_.back();
    TypeDef& type = *step.visit->type;
    if (step.nextItem < type.structItems.size()) {
        const TypeDef* itemType = type.structItems[step.nextItem++].type;
        if (itemType != nullptr) {
            Enter(visits_.at(itemType));
        }
        return;
    }
    CompleteStructured(type);
    step.visit->progress = Progress::Complete;
    way_.pop_back();
}

void TypeResolution::CompleteSimple(TypeDef& type) const {
    type.storedSize = converters_.GetSize(type.Description());
    type.signedness = values::ProposedDisplayFormat(type.baseType);
    type.itemsWithValues.clear();
}

void TypeResolution::CompleteStructured(TypeDef& type) {
    type.storedSize = 0;
    type.signedness = kNoSignedness;
    type.itemsWithValues.clear();
    for (StructItem& item : type.structItems) {
        item.offset = type.storedSize;
        if (item.type == nullptr) {
            continue;
        }
        type.recursive = type.recursive || item.type->recursive;
        type.storedSize += item.type->storedSize * item.dimension;
        type.signedness = CombineSignedness(type.signedness, item.type->signedness);
        if (item.type->HoldsValues()) {
            type.itemsWithValues.push_back(&item);
        }
    }
    if (type.recursive) {
        type.storedSize = 0;
        type.signedness = kNoSignedness;
        type.itemsWithValues.clear();
    }
    type.wrapped = WrappedBy(type);
}

const TypeDef* TypeResolution::WrappedBy(const TypeDef& type) {
    if (type.itemsWithValues.size() != 1 || type.itemsWithValues.front()->dimension != 1) {
        return nullptr;
    }
    const TypeDef* inner = type.itemsWithValues.front()->type;
    return inner->wrapped == nullptr ? inner : inner->wrapped;
}

}  // namespace

void ResolveTypes(std::deque<TypeDef>& types, const TypeIndex& index,
                  const values::ValueConverterSet& converters) {
    for (TypeDef& type : types) {
        for (StructItem& item : type.structItems) {
            const auto known = index.find(item.typeName);
            item.type = known == index.end() ? nullptr : known->second;
        }
    }
    TypeResolution(converters).Run(types);
}

}  // namespace orvell::memstruct
