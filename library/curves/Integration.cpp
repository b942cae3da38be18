#include "curves/Integration.h"

#include <algorithm>
#include <cmath>

namespace mt {

namespace {

constexpr double kFlatSlope = 1e-8;

struct Piece {
  double x0, y0, x1, y1;

  double area() const { return (x1 - x0) * 0.5 * (y0 + y1); }
};

// Walks the pieces between neighbouring support points that reach into a to b, each clipped to
// it, until a piece starts beyond b or the points run out.
class Pieces {
 public:
  Pieces(Integration& function, double a, double b) : function_(function), a_(a), b_(b) {
    function_.reset();
    function_.seek(a);
    valid_ = function_.next(x0_, y0_) && function_.next(x1_, y1_);
  }

  bool next(Piece& piece) {
    while (valid_ && !(x0_ > b_)) {
      const bool reaches = !(x1_ < a_);
      if (reaches) piece = clipped();
      x0_ = x1_;
      y0_ = y1_;
      valid_ = function_.next(x1_, y1_);
      if (reaches) return true;
    }
    return false;
  }

 private:
  // The point on the unclipped piece at x.
  void pointAt(double x, double& outX, double& outY) const {
    const double f = (x - x0_) / (x1_ - x0_);
    outX = x0_ * (1.0 - f) + x1_ * f;
    outY = y0_ * (1.0 - f) + y1_ * f;
  }

  Piece clipped() const {
    Piece piece{x0_, y0_, x1_, y1_};
    if (a_ > x0_ && a_ < x1_) pointAt(a_, piece.x0, piece.y0);
    if (x1_ > b_) pointAt(b_, piece.x1, piece.y1);
    return piece;
  }

  Integration& function_;
  double a_, b_;
  double x0_ = 0.0, y0_ = 0.0, x1_ = 0.0, y1_ = 0.0;
  bool valid_;
};

// The offset from the piece's start at which its area reaches rest: the root of
// y0 o + m o^2 / 2 = rest that lies ahead, the smaller when both do. A root of exactly 0 (the
// target sits on the piece's start) lies ahead too: it is where the area is reached.
double offsetInside(const Piece& piece, double rest) {
  const double m = (piece.y1 - piece.y0) / (piece.x1 - piece.x0);
  if (std::fabs(m) < kFlatSlope) return rest / piece.y0;
  const double p = 2.0 * piece.y0 / m, q = -2.0 * rest / m;
  const double s = std::sqrt(p * p / 4.0 - q);
  const double first = s - p / 2.0, second = -(p / 2.0 + s);
  if (!(first >= 0.0)) return second;
  return second >= 0.0 ? std::min(first, second) : first;
}

}  // namespace

double Integration::integrate(double a, double b) {
  Pieces pieces(*this, a, b);
  double sum = 0.0;
  for (Piece piece; pieces.next(piece);) sum += piece.area();
  return sum;
}

double Integration::solve(double a, double b, double target) {
  Pieces pieces(*this, a, b);
  double sum = 0.0;
  double result = a;
  for (Piece piece; pieces.next(piece);) {
    if (sum + piece.area() > target) return piece.x0 + offsetInside(piece, target - sum);
    sum += piece.area();
    result = piece.x1;
  }
  return result;
}

}  // namespace mt
