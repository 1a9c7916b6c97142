// A keyed list in order of addition, as the records and the code tables use it.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NolSchedCtls/base/error.h"

namespace NolSchedCtls::inline v1 {

constexpr char FoldedLetter(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// True if both keys are the same but for the case of the letters A to Z.
constexpr bool EqualKeys(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return a == b || FoldedLetter(a) == FoldedLetter(b); });
}

// Keys compare without regard to case; an empty one is a key like others. Positions count from 1. References
// stay good until the next Add or Remove.
template <class T>
class KeyedCollection {
  public:
    struct Entry {
        std::string key;
        T item;
    };

    // Without a key. Throws NolSchedError for a pointer to nothing; the collection is then unchanged.
    void Add(T item) { Put({{}, std::move(item)}, false); }
    // That, and DuplicateKeyError if the key is present.
    void Add(T item, std::string key) {
        if (Find(key) != nullptr)
            throw DuplicateKeyError("The key " + Quoted(key) + " is already in the collection.");
        Put({std::move(key), std::move(item)}, true);
    }

    // Nothing if the key is absent.
    const T* Find(std::string_view key) const noexcept {
        const auto found = Position(key);
        return found == entries.end() ? nullptr : &found->item;
    }

    // Throws MissingKeyError if the key is absent.
    const T& Item(std::string_view key) const {
        if (const T* item = Find(key)) return *item;
        throw MissingKeyError("The collection has no key " + Quoted(key) + ".");
    }

    // Throws MissingKeyError outside 1 to Count.
    const T& Item(std::size_t position) const {
        if (position >= 1 && position <= entries.size()) return entries[position - 1].item;
        throw MissingKeyError("The collection has no item " + std::to_string(position) + "; it holds " +
                              std::to_string(entries.size()) + ".");
    }

    // Throws MissingKeyError if the key is absent.
    void Remove(std::string_view key) {
        const auto found = Position(key);
        if (found == entries.end()) throw MissingKeyError("The collection has no key " + Quoted(key) + ".");
        hasKey.erase(hasKey.begin() + (found - entries.begin()));
        entries.erase(found);
    }

    std::size_t Count() const noexcept { return entries.size(); }
    auto begin() const noexcept { return entries.begin(); }
    auto end() const noexcept { return entries.end(); }

  private:
    void Put(Entry entry, bool isKeyed) {
        if constexpr (std::equality_comparable_with<T, std::nullptr_t>)
            if (entry.item == nullptr) throw NolSchedError("A collection takes no pointer to nothing.");
        hasKey.reserve(entries.size() + 1);
        entries.push_back(std::move(entry));
        hasKey.push_back(isKeyed);
    }

    auto Position(std::string_view key) const noexcept {
        auto place = entries.begin();
        for (const bool isKeyed : hasKey) {
            if (isKeyed && EqualKeys(place->key, key)) break;
            ++place;
        }
        return place;
    }

    std::vector<Entry> entries;
    std::vector<bool> hasKey;
};

// A collection of shared objects that are to be read, not changed. Ends before the collection does.
template <class T>
class ReadOnlyCollection {
  public:
    using Shared = std::shared_ptr<const T>;
    using Source = KeyedCollection<std::shared_ptr<T>>;

    struct Entry {
        const std::string& key;
        Shared item;
    };

    class Iterator {
      public:
        explicit Iterator(decltype(std::declval<const Source&>().begin()) atA) : at(atA) {}
        Entry operator*() const { return {at->key, at->item}; }
        Iterator& operator++() { return ++at, *this; }
        bool operator==(const Iterator&) const = default;

      private:
        decltype(std::declval<const Source&>().begin()) at;
    };

    explicit ReadOnlyCollection(const Source& sourceA) : source(sourceA) {}

    // As of the collection.
    Shared Item(std::string_view key) const { return source.Item(key); }
    Shared Item(std::size_t position) const { return source.Item(position); }
    std::size_t Count() const noexcept { return source.Count(); }
    Iterator begin() const { return Iterator(source.begin()); }
    Iterator end() const { return Iterator(source.end()); }

  private:
    const Source& source;
};

template <class T>
ReadOnlyCollection(const KeyedCollection<std::shared_ptr<T>>&) -> ReadOnlyCollection<T>;

}  // namespace NolSchedCtls::inline v1
