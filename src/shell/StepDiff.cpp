#include "shell/StepDiff.h"

#include <utility>

namespace aq {

namespace {

// Runs `fn` on the pool with its arrays set aside (empty), so whole pools can be copied
// or swapped for their other fields, whatever fields the pool gains.
template <class Fn>
void withArraysAside(Pool& pool, Fn fn) {
    std::vector<DrifterRec> drifters;
    std::vector<FoodBit> food;
    std::vector<std::uint8_t> history;
    drifters.swap(pool.drifters);
    food.swap(pool.food);
    history.swap(pool.historyBlock);
    fn(pool);
    pool.drifters.swap(drifters);
    pool.food.swap(food);
    pool.historyBlock.swap(history);
}

}  // namespace

void PoolDiff::take(PoolSnapshot& base, Pool& now, PoolLists lists) {
    drifters_.take(base.pool.drifters, now.drifters);
    food_.take(base.pool.food, now.food);
    historyDiffers_ = base.pool.historyBlock != now.historyBlock;
    history_ = historyDiffers_ ? std::exchange(base.pool.historyBlock, now.historyBlock) : std::vector<std::uint8_t>();
    withArraysAside(base.pool, [&](Pool& was) {
        withArraysAside(now, [&](Pool& fields) {
            fields_ = std::move(was);
            was = fields;
        });
    });
    drifterRows_.take(base.lists.drifterRows, lists.drifterRows);
    foodRows_.take(base.lists.foodRows, lists.foodRows);
    view_ = std::exchange(base.lists.view, std::move(lists.view));
}

void PoolDiff::swapWith(PoolSnapshot& state) {
    drifters_.swapWith(state.pool.drifters);
    food_.swapWith(state.pool.food);
    if (historyDiffers_) state.pool.historyBlock.swap(history_);
    withArraysAside(state.pool, [&](Pool& fields) { std::swap(fields, fields_); });
    drifterRows_.swapWith(state.lists.drifterRows);
    foodRows_.swapWith(state.lists.foodRows);
    std::swap(view_, state.lists.view);
}

void PoolDiff::follow(const PoolLists& was, const PoolLists& now) {
    if (was.drifterRows != now.drifterRows) drifterRows_.follow(was.drifterRows, now.drifterRows);
    if (was.foodRows != now.foodRows) foodRows_.follow(was.foodRows, now.foodRows);
}

std::size_t PoolDiff::bytes() const {
    return sizeof(PoolDiff) + drifters_.bytes() + food_.bytes() + history_.capacity() + drifterRows_.bytes() +
           foodRows_.bytes() + view_.path.capacity();
}

void DnaDiff::take(DnaSnapshot& base, const std::vector<Genome>& genes, std::vector<CheckRow> rows, DnaView view) {
    genes_.take(base.genes, genes);
    rows_.take(base.rows, rows);
    view_ = std::exchange(base.view, std::move(view));
}

void DnaDiff::swapWith(DnaSnapshot& state) {
    genes_.swapWith(state.genes);
    rows_.swapWith(state.rows);
    std::swap(view_, state.view);
}

std::size_t DnaDiff::bytes() const {
    return sizeof(DnaDiff) + genes_.bytes() + rows_.bytes() + view_.gene.txtGene.capacity() +
           view_.gene.lblGeneRange.capacity();
}

}  // namespace aq
