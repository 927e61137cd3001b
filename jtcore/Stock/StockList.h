// A list of stocks in the order of their insertion. It owns them; each keeps its address until it is removed.
//
// Three ways to walk: begin() and end() for readers, who leave the list as it is; the list's own cursor; and a position
// of the caller's. The own cursor stays right while stocks are removed under it.
#pragma once

#include "jtcore/Stock/Stock.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>
#include <vector>

class StockList {
    using Stocks = std::vector<std::unique_ptr<Stock>>;

public:
    using Position = std::size_t;

    // Steps over the stocks themselves. Adding or removing one ends its validity.
    template <typename Element>
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::remove_const_t<Element>;
        using difference_type = std::ptrdiff_t;
        using pointer = Element*;
        using reference = Element&;

        Iterator() = default;
        explicit Iterator(Stocks::const_iterator at) noexcept : at_(at) {}
        Element& operator*() const noexcept { return **at_; }
        Iterator& operator++() noexcept {
            ++at_;
            return *this;
        }
        Iterator operator++(int) noexcept { return Iterator(at_++); }
        bool operator==(const Iterator&) const noexcept = default;

    private:
        Stocks::const_iterator at_;
    };

    StockList() = default;
    // Copies of all stocks; the cursor of the copy stands at the start.
    StockList(const StockList& other);
    StockList& operator=(const StockList& other);
    StockList(StockList&&) noexcept = default;
    StockList& operator=(StockList&&) noexcept = default;
    ~StockList() = default;

    // The stocks of a media database: a list whose every "value" holds the members of a media-col. What is no list, or
    // describes nothing, is left out.
    static StockList fromAttributes(const AttrNodeList& list, StockType type);

    // Appends a copy and returns it.
    Stock& addStock(const Stock& stock);
    // Appends copies of all; the other may be this list.
    void append(const StockList& other);
    // Removes that very object, and returns the position of what followed it. One that is not here is no failure; the
    // position is then that of the end.
    Position removeStock(const Stock* stock);
    void clear() noexcept;

    // By address.
    bool contains(const Stock* stock) const noexcept { return find(stock) != stocks_.size(); }
    std::size_t getSize() const noexcept { return stocks_.size(); }
    bool isEmpty() const noexcept { return stocks_.empty(); }

    Iterator<Stock> begin() noexcept { return Iterator<Stock>(stocks_.begin()); }
    Iterator<Stock> end() noexcept { return Iterator<Stock>(stocks_.end()); }
    Iterator<const Stock> begin() const noexcept { return Iterator<const Stock>(stocks_.begin()); }
    Iterator<const Stock> end() const noexcept { return Iterator<const Stock>(stocks_.end()); }

    // getNextStock() raises NodeAccessOutOfBoundsException at the end.
    void rewind() noexcept { cursor_ = 0; }
    bool hasMoreStocks() const noexcept { return hasMoreStocks(cursor_); }
    Stock& getNextStock() { return getNextStock(cursor_); }
    void rewind(Position& position) const noexcept { position = 0; }
    bool hasMoreStocks(Position position) const noexcept { return position < stocks_.size(); }
    Stock& getNextStock(Position& position);

private:
    // The size where there is no such stock.
    Position find(const Stock* stock) const noexcept;

    Stocks stocks_;
    Position cursor_ = 0;
};
