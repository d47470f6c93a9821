#pragma once
// The stand-in simulator's world: a small, deterministic toy, not the real
// simulator's physics. It only changes fields the file manager knows; every other
// byte of a record it did not create stays as it was read.
#include <cstdint>

#include "format/Records.h"

namespace standin {

class ToyModel {
public:
    explicit ToyModel(aq::Pool& pool);
    // One tick of the pool's clock: move, spend energy, eat, die, breed.
    void step();

private:
    std::uint32_t next();  // xorshift32
    float unit();          // [0, 1)
    void moveDrifter(aq::DrifterRec& d);
    void eat(aq::DrifterRec& d);
    void breed(int mother);
    int nextId() const;

    aq::Pool& pool_;
    std::uint32_t state_;
};

}  // namespace standin
