// Reduces a failing sequence by delta debugging: operations first, then their parts.
#include <algorithm>
#include <functional>

#include "runner.h"

namespace model {

namespace {

constexpr int kMostRuns = 1'500;

class Reducer {
public:
    Reducer(Sequence sequence, const Files& files) : sequence_(std::move(sequence)), files_(files) {}

    Sequence Reduce() {
        for (bool smaller = true; smaller && runs_ < kMostRuns;) {
            smaller = Shorten(sequence_);
            for (std::size_t i = 0; i < sequence_.size(); ++i) {
                // By index: the reduction may replace the operation.
                smaller = Simplify([this, i]() -> Operation& { return sequence_[i]; }) || smaller;
            }
        }
        return sequence_;
    }

private:
    using Find = std::function<Operation&()>;

    // Exports are called after initialize.
    bool IsAllowed() const {
        for (const Operation& operation : sequence_) {
            if (operation.act <= Act::CompleteAll) {
                return operation.act == Act::Initialize;
            }
        }
        return false;
    }
    bool StillFails() {
        if (!IsAllowed() || runs_ >= kMostRuns) {
            return false;
        }
        ++runs_;
        return !Run(sequence_, files_).empty();
    }

    // Removes parts of the list, larger ones first.
    template <class T>
    bool Shorten(std::vector<T>& list) {
        bool smaller = false;
        for (std::size_t size = std::max<std::size_t>(list.size(), 1); size > 0; size /= 2) {
            for (std::size_t begin = 0; begin < list.size();) {
                const std::vector<T> before = list;
                const auto first = list.begin() + static_cast<std::ptrdiff_t>(begin);
                list.erase(first, first + static_cast<std::ptrdiff_t>(std::min(size, list.size() - begin)));
                if (StillFails()) {
                    smaller = true;
                } else {
                    list = before;
                    begin += size;
                }
            }
        }
        return smaller;
    }

    // Keeps the first of the simpler values that still fails.
    template <class T>
    bool Try(T& value, std::initializer_list<T> simpler) {
        for (const T& candidate : simpler) {
            if (value == candidate) {
                return false;
            }
            const T before = value;
            value = candidate;
            if (StillFails()) {
                return true;
            }
            value = before;
        }
        return false;
    }

    bool Simplify(const Find& find) {
        bool smaller = Shorten(find().faults);
        smaller = Shorten(find().inside) || smaller;
        smaller = Shorten(find().reactions) || smaller;
        smaller = Shorten(find().items) || smaller;
        smaller = Shorten(find().kinds) || smaller;
        for (std::size_t i = 0; i < find().items.size(); ++i) {
            smaller = SimplifyItem(find().items[i]) || smaller;
        }
        for (Fault& fault : find().faults) {
            smaller = Try<std::uint32_t>(fault.times, {1, 2, 3}) || smaller;
            smaller = Try<Fault::Kind>(fault.kind, {Fault::Kind::Fail}) || smaller;
        }
        smaller = SimplifyValues(find()) || smaller;
        for (std::size_t i = 0; i < find().reactions.size(); ++i) {
            smaller = Simplify([find, i]() -> Operation& { return find().reactions[i]; }) || smaller;
        }
        for (std::size_t i = 0; i < find().inside.size(); ++i) {
            smaller = Simplify([find, i]() -> Operation& { return find().inside[i].operation; }) || smaller;
        }
        return smaller;
    }
    bool SimplifyItem(Item& item) {
        bool smaller = Try<WideText>(item.label, {{}, UTF16("a")});
        smaller = Try<WideText>(item.glyph, {{}, UTF16("a")}) || smaller;
        smaller = Try<WideText>(item.family, {{}, UTF16("a")}) || smaller;
        smaller = Try<std::uint32_t>(item.id, {0, 1}) || smaller;
        smaller = Try<std::uint8_t>(item.haptics, {0, 1}) || smaller;
        return item.kind == 2 ? Try<std::uint64_t>(item.number, {0}) || smaller : smaller;
    }
    bool SimplifyValues(Operation& operation) {
        bool smaller = Try<std::uint32_t>(operation.times, {1, 2, 100});
        smaller = Try<WideText>(operation.value, {{}, UTF16("a")}) || smaller;
        smaller = Try<WideText>(operation.key, {{}, UTF16("key")}) || smaller;
        smaller = Try<std::optional<std::uint32_t>>(operation.haptic_request, {std::nullopt}) || smaller;
        smaller = Try<float>(operation.x, {0, 1}) || smaller;
        smaller = Try<float>(operation.y, {0, 1}) || smaller;
        smaller = Try<float>(operation.width, {0, 1}) || smaller;
        smaller = Try<float>(operation.height, {0, 1}) || smaller;
        smaller = Try<double>(operation.degrees, {0, 1}) || smaller;
        return Try<std::uint64_t>(operation.number, {0, 1}) || smaller;
    }

    Sequence sequence_;
    const Files& files_;
    int runs_ = 0;
};

}  // namespace

Sequence Reduce(Sequence sequence, const Files& files) {
    return Reducer(std::move(sequence), files).Reduce();
}

}  // namespace model
