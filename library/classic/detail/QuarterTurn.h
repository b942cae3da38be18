// QuarterTurn: the cosine of a quarter turn as double precision gives it. The matrices of the
// primitives and of the photo correction carry it in place of an exact 0, and their output
// depends on it.
#pragma once

namespace mv {

constexpr double kQuarterTurnCosine = 6.123233995736766e-17;

}  // namespace mv
