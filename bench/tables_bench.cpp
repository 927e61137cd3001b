// Lookups in the tables against the library's hash map with the same keys.
#include "bench/ratios.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"

#include <string>
#include <unordered_map>
#include <utility>

namespace {

struct FeatureAndText {
    Feature feature;
    std::u16string text;
    bool operator==(const FeatureAndText&) const = default;
};

struct FeatureAndTextHash {
    std::size_t operator()(const FeatureAndText& key) const noexcept {
        return std::hash<std::u16string>()(key.text) * 31 + static_cast<std::size_t>(key.feature);
    }
};

std::vector<FeatureAndText> allKeys() {
    std::vector<FeatureAndText> keys;
    for (const FeatureValueInfo& row : FeatureValueDataBase::fixedRows())
        for (Feature feature : row.features)
            keys.push_back({feature, std::u16string(row.text)});
    return keys;
}

// Steps through the keys in an order that no cache line foresees.
std::size_t nextIndex(std::size_t index, std::size_t count) { return (index + 389) % count; }

void valueByFeatureAndText(benchmark::State& state) {
    auto keys = allKeys();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(FeatureValueDataBase::find(keys[i].feature, keys[i].text));
        i = nextIndex(i, keys.size());
    }
}
BENCHMARK(valueByFeatureAndText);

void valueByFeatureAndTextPeer(benchmark::State& state) {
    auto keys = allKeys();
    std::unordered_map<FeatureAndText, int, FeatureAndTextHash> map;
    for (const FeatureAndText& key : keys)
        map.emplace(key, 1);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.find(keys[i]));
        i = nextIndex(i, keys.size());
    }
}
BENCHMARK(valueByFeatureAndTextPeer);

void valueByNumber(benchmark::State& state) {
    auto rows = FeatureValueDataBase::fixedRows();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(FeatureValueDataBase::find(rows[i].number));
        i = nextIndex(i, rows.size());
    }
}
BENCHMARK(valueByNumber);

void valueByNumberPeer(benchmark::State& state) {
    auto rows = FeatureValueDataBase::fixedRows();
    std::unordered_map<std::uint32_t, int> map;
    for (const FeatureValueInfo& row : rows)
        map.emplace(static_cast<std::uint32_t>(row.number), 1);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.find(static_cast<std::uint32_t>(rows[i].number)));
        i = nextIndex(i, rows.size());
    }
}
BENCHMARK(valueByNumberPeer);

void featureById(benchmark::State& state) {
    auto rows = FeatureDataBase::rows();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(FeatureDataBase::find(rows[i].uniqueId()));
        i = nextIndex(i, rows.size());
    }
}
BENCHMARK(featureById);

const int reported[] = {
    reportRatio(
        {"value by feature and text / unordered_map", "valueByFeatureAndText", "valueByFeatureAndTextPeer", 1.0}),
    reportRatio({"value by number / unordered_map", "valueByNumber", "valueByNumberPeer", 1.0}),
    reportRatio({"feature by id / value by feature and text", "featureById", "valueByFeatureAndText"}),
};

} // namespace
