#include "construction/tagQKWALLCHARACTER.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <numbers>
#include <utility>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64) || defined(_M_AMD64)
#include <emmintrin.h>
#endif

#include "foundation/QKNumeric.h"

namespace {

constexpr double kMassless = 1e-9;                   // W·h/(m³·K): at or below, a layer has no capacity
constexpr double kOmegaPerHarmonic = 0.2617993877991494;  // π/12 rad/h: the daily period's first harmonic
constexpr int kHarmonics = 12;
constexpr int kHours = 24;
constexpr int kThermalRoots = 30;      // roots for response array 1
constexpr double kThermalTolerance = 0.00015;
constexpr int kResponseRoots = 60;     // roots for response arrays 2 to 4
constexpr double kResponseTolerance = 0.0001;
// Newton converges on these roots in a handful of steps; the cap only keeps a degenerate wall (a
// conductivity of 0, a NaN) from looping for ever. The search then ends with the roots found so far.
constexpr int kMaxNewtonSteps = 200;
// Terms (one root, one hour) added to the hourly sums of each search after each Newton step.
constexpr int kTermsPerStep = 2;

// One entry of the working list (surfaces included), as every calculation needs it. A plain
// aggregate, made by MakeEntry or SurfaceEntry, so that the room the working list keeps for entries
// costs nothing until used.
struct Entry {
  double r;         // resistance, m²·K/W
  double capacity;  // C·δ, W·h/(m²·K); 0 for a mass-less entry
  double rc;        // R·C·δ, h
  double sqrtRc;    // √(R·C·δ)
  // The factors of the derivatives by s, made once here rather than at every Newton step.
  double halfRc;   // h = R·C·δ/2, h
  double halfRcR;  // h·R
  bool massive;
  // An earlier massive entry with the same √(R·C·δ) (two layers of one material and thickness),
  // whose angle, sine and cosine at every s this one shares; -1 for none. Set by LinkSameAngles.
  int sameAngleAs;
};

Entry MakeEntry(const tagQKTIMBERINGCHARACTER& layer) {
  Entry e{};
  const double conductivity = layer.DrXs * layer.DrXsXz;
  const double volumetric = layer.GMD * layer.GMCXz * layer.BRr / 3.6;  // W·h/(m³·K)
  if (std::fabs(volumetric) <= kMassless) {
    e.r = 1.0 / conductivity;  // the conductivity field holds the conductance; the thickness is ignored
    return e;
  }
  e.r = layer.Thick / conductivity;
  e.capacity = volumetric * layer.Thick;
  e.rc = e.r * e.capacity;
  e.sqrtRc = std::sqrt(e.rc);
  e.halfRc = e.rc / 2.0;
  e.halfRcR = e.halfRc * e.r;
  e.massive = true;
  return e;
}

Entry SurfaceEntry(double coefficient) {
  Entry e{};
  e.r = 1.0 / coefficient;
  return e;
}

// The working list, inside surface first and outside surface last (the order of the periodic
// calculation), made once per calculation. Walls of up to 30 layers need no heap.
class Entries {
 public:
  Entries(const CQKLayerArray& layers, double outside, double inside) {
    const int count = layers.GetSize() + 2;
    if (count > static_cast<int>(m_inline.size())) m_heap.resize(static_cast<std::size_t>(count));
    m_data = m_heap.empty() ? m_inline.data() : m_heap.data();
    m_count = count;
    // Made in place, each entry written once where it stays.
    new (&m_data[0]) Entry(SurfaceEntry(inside));
    for (int i = layers.GetSize() - 1, k = 1; i >= 0; --i, ++k) new (&m_data[k]) Entry(MakeEntry(layers[i]));
    new (&m_data[count - 1]) Entry(SurfaceEntry(outside));
  }
  Entries(const Entries&) = delete;
  Entries& operator=(const Entries&) = delete;

  int size() const { return m_count; }
  const Entry& operator[](int i) const { return m_data[i]; }
  const Entry* begin() const { return m_data; }
  const Entry* end() const { return m_data + m_count; }

  // Links each massive entry to the first earlier one with the same √(R·C·δ), if any (sameAngleAs);
  // for the periodic calculation only.
  void LinkSameAngles() {
    for (int k = 0; k < m_count; ++k) {
      m_data[k].sameAngleAs = -1;
      for (int m = 0; m < k && m_data[k].massive; ++m) {
        if (m_data[m].massive && m_data[m].sqrtRc == m_data[k].sqrtRc) {
          m_data[k].sameAngleAs = m;
          break;
        }
      }
    }
  }

  double TotalResistance() const {
    double sum = 0.0;
    for (const Entry& e : *this) sum += e.r;
    return sum;
  }
  // Periodic data exist only for a wall with real layers whose massive ones resist heat. A layer
  // without conductivity resists infinitely (U = 0): nothing periodic passes, and the periodic results
  // are left as they were rather than filled with NaN.
  bool HasPeriodicData() const {
    if (m_count <= 2) return false;
    double massive = 0.0;
    for (const Entry& e : *this) {
      if (e.massive) massive += e.r;
    }
    return massive > kMassless && std::isfinite(massive);
  }

 private:
  std::array<Entry, 32> m_inline;  // left uninitialised: only the entries a wall has are made
  std::vector<Entry> m_heap;
  Entry* m_data = nullptr;
  int m_count = 0;
};

// Two numbers that take every operation side by side, one lane each: the values of two searches
// advanced together. Each lane gets exactly the IEEE operation a double would, in the same order, so
// a search comes to the same bits alone or in a pair; the two lanes share one vector instruction
// where the target has SSE2, and are at least independent work the processor overlaps elsewhere.
#if defined(__SSE2__) || defined(_M_X64) || defined(_M_AMD64)
class Pair {
 public:
  Pair() = default;  // uninitialised, as a double
  Pair(double both) : m_lanes(_mm_set1_pd(both)) {}  // a constant, in both lanes
  Pair(double first, double second) : m_lanes(_mm_setr_pd(first, second)) {}

  double First() const { return _mm_cvtsd_f64(m_lanes); }
  double Second() const { return _mm_cvtsd_f64(_mm_unpackhi_pd(m_lanes, m_lanes)); }

  friend Pair operator+(const Pair& x, const Pair& y) { return Pair(_mm_add_pd(x.m_lanes, y.m_lanes)); }
  friend Pair operator-(const Pair& x, const Pair& y) { return Pair(_mm_sub_pd(x.m_lanes, y.m_lanes)); }
  friend Pair operator*(const Pair& x, const Pair& y) { return Pair(_mm_mul_pd(x.m_lanes, y.m_lanes)); }
  friend Pair operator/(const Pair& x, const Pair& y) { return Pair(_mm_div_pd(x.m_lanes, y.m_lanes)); }
  friend Pair operator-(const Pair& x) { return Pair(_mm_xor_pd(x.m_lanes, _mm_set1_pd(-0.0))); }

 private:
  explicit Pair(__m128d lanes) : m_lanes(lanes) {}
  __m128d m_lanes;
};
#else
class Pair {
 public:
  Pair() = default;  // uninitialised, as a double
  Pair(double both) : m_lanes{both, both} {}  // a constant, in both lanes
  Pair(double first, double second) : m_lanes{first, second} {}

  double First() const { return m_lanes[0]; }
  double Second() const { return m_lanes[1]; }

  friend Pair operator+(const Pair& x, const Pair& y) { return {x.First() + y.First(), x.Second() + y.Second()}; }
  friend Pair operator-(const Pair& x, const Pair& y) { return {x.First() - y.First(), x.Second() - y.Second()}; }
  friend Pair operator*(const Pair& x, const Pair& y) { return {x.First() * y.First(), x.Second() * y.Second()}; }
  friend Pair operator/(const Pair& x, const Pair& y) { return {x.First() / y.First(), x.Second() / y.Second()}; }
  friend Pair operator-(const Pair& x) { return {-x.First(), -x.Second()}; }

 private:
  double m_lanes[2];
};
#endif

// The sine and cosine of a double, or of each lane of a pair: std::sin and std::cos of one argument,
// which the compiler makes one sincos call.
void SinCos(double x, double& sine, double& cosine) {
  sine = std::sin(x);
  cosine = std::cos(x);
}
void SinCos(const Pair& x, Pair& sine, Pair& cosine) {
  double sine1, cosine1, sine2, cosine2;
  SinCos(x.First(), sine1, cosine1);
  SinCos(x.Second(), sine2, cosine2);
  sine = Pair(sine1, sine2);
  cosine = Pair(cosine1, cosine2);
}

// The transmission matrix [[A, B], [C, A]] of one entry at a real Laplace variable s ≤ 0, with its
// derivative by s (a layer has A = D). T is double for one point, Pair for two.
template <class T>
struct EntryMatrix {
  T a, b, c;
  T da, db, dc;
};

// A mass-less entry: [[1, R], [0, 1]], the same at every s.
template <class T>
EntryMatrix<T> MasslessMatrix(const Entry& e) {
  return {1.0, e.r, 0.0, 0.0, 0.0, 0.0};
}

// θ = √(−s)·√(RCδ) of a massive entry, with its sine and cosine.
template <class T>
struct Angle {
  Angle() = default;
  Angle(const Entry& e, const T& rootMinusS) : theta(rootMinusS * e.sqrtRc) { SinCos(theta, sine, cosine); }
  T theta, sine, cosine;
};

// A massive entry away from s = 0: with h = RCδ/2, A = cos θ, B = R·sin θ/θ, C = −θ·sin θ/R,
// A' = h·sin θ/θ, B' = h·R·(sin θ/θ − cos θ)/θ², C' = Cδ·(cos θ + sin θ/θ)/2.
template <class T>
EntryMatrix<T> MassiveMatrix(const Entry& e, const Angle<T>& angle) {
  const T& theta = angle.theta;
  const T& sine = angle.sine;
  const T& cosine = angle.cosine;
  const T sinc = sine / theta;
  EntryMatrix<T> m;
  m.a = cosine;
  m.b = e.r * sinc;
  m.c = -theta * sine / e.r;
  m.da = e.halfRc * sinc;
  m.db = e.halfRcR * (sinc - cosine) / (theta * theta);
  m.dc = e.capacity * (cosine + sinc) / 2.0;
  return m;
}

// A point s of the search, with what every entry's matrix takes from it: √(−s), once per point.
struct Point {
  explicit Point(double s) : atZero(std::fabs(s) <= kMassless), rootMinusS(atZero ? 0.0 : std::sqrt(-s)) {}
  bool atZero;  // |s| ≤ 1e-9: the limits of the matrix at s = 0 apply
  double rootMinusS;
};

// A massive entry at s = 0, where its matrix takes its limits.
EntryMatrix<double> MassiveMatrixAtZero(const Entry& e) {
  return {1.0, e.r, 0.0, e.halfRc, e.halfRcR / 3.0, e.capacity};
}

// The first row [A, B] of the chained matrix P, with its derivative: all that a Newton step on B
// needs. P ← P·M for each entry, and P' ← P'·M + P·M' by the product rule; the first row of the
// product depends on the first row of P alone.
template <class T>
struct FirstRow {
  T a = 1.0, b = 0.0;
  T da = 0.0, db = 0.0;

  void MultiplyRight(const EntryMatrix<T>& m) {
    const FirstRow q = *this;
    a = q.a * m.a + q.b * m.c;
    b = q.a * m.b + q.b * m.a;
    da = q.da * m.a + q.db * m.c + q.a * m.da + q.b * m.dc;
    db = q.da * m.b + q.db * m.a + q.a * m.db + q.b * m.da;
  }
};

// The chained matrix's first row with its derivative, as a Newton step needs it, and its second
// row without derivative, which only the residues of a root need. MultiplyRight<false> leaves the
// second row out (and as it was), for a step that needs the first row only.
template <class T>
struct ChainRows {
  FirstRow<T> first;
  T c = 0.0, d = 1.0;

  template <bool kSecondRow>
  void MultiplyRight(const EntryMatrix<T>& m) {
    first.MultiplyRight(m);
    if constexpr (!kSecondRow) return;
    const T qc = c;
    c = qc * m.a + d * m.c;
    d = qc * m.b + d * m.a;
  }
};

// The working list as the Newton steps take it, with what does not depend on s worked out once:
// the chain over the mass-less entries before the first massive one (the inside surface, and any
// air gap next to it), and the whole chain at s = 0, where every entry takes its limits. The last
// entry is always the outside surface, which is mass-less.
class Chain {
 public:
  explicit Chain(const Entries& entries) : m_entries(entries) {
    while (m_firstMassive < entries.size() && !entries[m_firstMassive].massive) {
      m_prefix.MultiplyRight<true>(MasslessMatrix<double>(entries[m_firstMassive]));
      ++m_firstMassive;
    }
    for (const Entry& e : entries) {
      m_atZero.MultiplyRight<true>(e.massive ? MassiveMatrixAtZero(e) : MasslessMatrix<double>(e));
    }
  }

  const Entries& entries() const { return m_entries; }
  int FirstMassive() const { return m_firstMassive; }
  const ChainRows<double>& Prefix() const { return m_prefix; }
  const ChainRows<double>& AtZero() const { return m_atZero; }

 private:
  const Entries& m_entries;
  int m_firstMassive = 0;
  ChainRows<double> m_prefix;
  ChainRows<double> m_atZero;
};

// The chain away from s = 0, its second row only when kSecondRow. The angles of a block of entries
// are taken before their matrices: their sine and cosine calls, the long part of a step and
// independent of one another, then follow each other and overlap instead of each waiting behind the
// entry before. meanwhile() runs right after the first of those calls, for the work of the step
// that does not need them (the deflation), which the processor then does while the calls run.
template <bool kSecondRow, class T, class Meanwhile>
ChainRows<T> ChainAwayFromZero(const Chain& chain, const T& rootMinusS, Meanwhile meanwhile) {
  constexpr int kBlock = 8;
  const Entries& entries = chain.entries();
  const ChainRows<double>& prefix = chain.Prefix();
  ChainRows<T> p{{prefix.first.a, prefix.first.b, prefix.first.da, prefix.first.db}, prefix.c, prefix.d};
  const int last = entries.size() - 1;
  bool meanwhileDone = false;
  for (int begin = chain.FirstMassive(); begin < last; begin += kBlock) {
    const int end = std::min(begin + kBlock, last);
    Angle<T> angles[kBlock];
    for (int i = begin; i < end; ++i) {
      const Entry& e = entries[i];
      if (!e.massive) continue;
      angles[i - begin] = e.sameAngleAs >= begin ? angles[e.sameAngleAs - begin] : Angle<T>(e, rootMinusS);
      if (!meanwhileDone) {
        meanwhile();
        meanwhileDone = true;
      }
    }
    for (int i = begin; i < end; ++i) {
      // Two calls, so that the mass-less one is compiled with its constant 1s and 0s.
      const Entry& e = entries[i];
      if (e.massive) {
        p.template MultiplyRight<kSecondRow>(MassiveMatrix(e, angles[i - begin]));
      } else {
        p.template MultiplyRight<kSecondRow>(MasslessMatrix<T>(e));
      }
    }
  }
  if (!meanwhileDone) meanwhile();
  p.template MultiplyRight<kSecondRow>(MasslessMatrix<T>(entries[last]));
  return p;
}

template <class Meanwhile>
ChainRows<double> ChainAt(const Chain& chain, double s, Meanwhile meanwhile) {
  const Point point(s);
  if (!point.atZero) return ChainAwayFromZero<true>(chain, point.rootMinusS, meanwhile);
  meanwhile();
  return chain.AtZero();
}

// The chain at two points, one per lane, its second row only when kSecondRow. A lane within 1e-9 of
// s = 0 takes the limits there, so then each lane is worked out alone.
template <bool kSecondRow, class Meanwhile>
ChainRows<Pair> ChainsAt(const Chain& chain, const Pair& s, Meanwhile meanwhile) {
  const Point first(s.First()), second(s.Second());
  if (first.atZero || second.atZero) {
    const auto nothing = [] {};
    const ChainRows<double> p1 = ChainAt(chain, s.First(), meanwhile);
    const ChainRows<double> p2 = ChainAt(chain, s.Second(), nothing);
    const FirstRow<Pair> first{{p1.first.a, p2.first.a}, {p1.first.b, p2.first.b}, {p1.first.da, p2.first.da},
                               {p1.first.db, p2.first.db}};
    return {first, {p1.c, p2.c}, {p1.d, p2.d}};
  }
  return ChainAwayFromZero<kSecondRow>(chain, Pair(first.rootMinusS, second.rootMinusS), meanwhile);
}

// One root s = -β of B(s) and what the hourly sums need of it.
struct Root {
  double beta = 0.0;
  double oneMinusE = 1.0;        // 1 - e, e = exp(-β) the decay over one hour
  double oneMinusESquared = 1.0;
  double e23 = 0.0;
  double e24 = 0.0;
  double y = 0.0;      // through residue -1/(β·B')
  double x = 0.0;      // inside residue y·D
  double rampY = 0.0;  // y/β
  double rampX = 0.0;  // x/β
};

// The root at s, from the derivative B' of the chained first row and the element D of its second
// row there.
Root RootAt(double s, double dB, double d) {
  Root root;
  root.beta = -s;
  root.y = -1.0 / (root.beta * dB);
  root.x = root.y * d;
  root.rampY = root.y / root.beta;
  root.rampX = root.x / root.beta;
  const double e = std::exp(-root.beta);
  if (std::fabs(e) > kMassless) {
    root.oneMinusE = 1.0 - e;
    root.oneMinusESquared = root.oneMinusE * root.oneMinusE;
    root.e23 = std::pow(e, 23);
    root.e24 = root.e23 * e;
  }
  return root;
}

Root MakeRoot(const Chain& chain, double s) {
  const ChainRows<double> p = ChainAt(chain, s, [] {});
  return RootAt(s, p.first.db, p.d);
}

// Σ 1/(s − s_k) over the roots found, added in their order to sum (what earlier roots added up to).
// The quotients do not depend on one another and are taken two at a time, in one division of a
// pair; the sum stays a plain sum from left to right.
double Deflation(double s, const double* found, int count, double sum = 0.0) {
  int m = 0;
  for (; m + 1 < count; m += 2) {
    const Pair quotient = Pair(1.0) / (Pair(s) - Pair(found[m], found[m + 1]));
    sum += quotient.First();
    sum += quotient.Second();
  }
  if (m < count) sum += 1.0 / (s - found[m]);
  return sum;
}

// Newton's step on B with the earlier roots deflated: B/(B' − B·Σ 1/(s − s_k)).
template <class T>
T NewtonStep(const FirstRow<T>& p, const T& deflation) {
  return p.b / (p.db - p.b * deflation);
}

// Newton's method on the negative real axis, one step at a time: each root from s = 0, the roots
// found before deflated. It ends at maxRoots, or at a root whose ramp residues y/β and x/β are both
// below the tolerance, and then uses an even number of roots; or, with the roots found so far
// (made even), at a step that is not finite or after kMaxNewtonSteps steps on one root.
class RootSearch {
 public:
  RootSearch(int maxRoots, double tolerance) : m_maxRoots(maxRoots), m_tolerance(tolerance) {}

  bool Done() const { return m_used >= 0; }
  // The number of roots to use, once Done.
  int Used() const { return m_used; }
  const Root* Roots() const { return m_roots.data(); }
  // Where the next step starts (while on a root, that root).
  double Point() const { return m_s; }
  // The roots found so far, as points s.
  const double* Found() const { return m_found.data(); }
  int Count() const { return m_count; }

  // Σ 1/(s − s_k) at Point() over the roots found. At the start of a root's search, at s = 0, it
  // is the sum at s = 0 of the search before plus the term of the root just found.
  double DeflationHere() const { return m_steps == 0 ? m_deflationAtZero : Deflation(m_s, m_found.data(), m_count); }

  // Moves by -delta, mirrored onto the negative axis. Returns true when the step lands on a root,
  // which Accept must then be given before the next step.
  bool Take(double delta) {
    if (!std::isfinite(delta)) {
      Finish(m_count);
      return false;
    }
    m_s -= delta;
    if (m_s > 0.0) m_s = -m_s;
    ++m_steps;
    if (std::fabs(delta) <= m_tolerance) return true;
    if (m_steps == kMaxNewtonSteps) Finish(m_count);
    return false;
  }

  // Keeps the root at Point() (made by MakeRoot there) and starts the search for the next one.
  void Accept(const Root& root) {
    m_found[m_count] = m_s;
    m_deflationAtZero += 1.0 / (0.0 - m_s);
    m_roots[m_count] = root;
    ++m_count;
    m_s = 0.0;
    m_steps = 0;
    if (std::fabs(root.rampY) < m_tolerance && std::fabs(root.rampX) < m_tolerance) {
      Finish(m_count);
    } else if (m_count == m_maxRoots) {
      m_used = m_maxRoots;
    }
  }

 private:
  void Finish(int count) { m_used = count - count % 2; }

  int m_maxRoots;
  double m_tolerance;
  double m_s = 0.0;
  int m_steps = 0;  // on the present root
  int m_count = 0;  // roots found
  int m_used = -1;  // -1 while searching
  double m_deflationAtZero = 0.0;
  std::array<double, kResponseRoots> m_found{};
  std::array<Root, kResponseRoots> m_roots;
};

// The deflations of two searches side by side, each summed in its own order as above.
Pair Deflations(const Pair& s, const RootSearch& first, const RootSearch& second) {
  Pair sum(0.0);
  const int common = std::min(first.Count(), second.Count());
  for (int m = 0; m < common; ++m) sum = sum + Pair(1.0) / (s - Pair(first.Found()[m], second.Found()[m]));
  return {Deflation(s.First(), first.Found() + common, first.Count() - common, sum.First()),
          Deflation(s.Second(), second.Found() + common, second.Count() - common, sum.Second())};
}

// Newton's step of a search from its point.
double NewtonStepOf(const Chain& chain, const RootSearch& search) {
  double deflation = 0.0;
  const ChainRows<double> p = ChainAt(chain, search.Point(), [&] { deflation = search.DeflationHere(); });
  return NewtonStep(p.first, deflation);
}

// After a root the search for the next one starts at s = 0, where the chain takes its limits and
// needs no sines or cosines: that first step is taken at once. Returns true when the search lands
// on a root again.
bool AcceptAndStepFromZero(const Chain& chain, RootSearch& search, const Root& root) {
  search.Accept(root);
  return !search.Done() && search.Take(NewtonStepOf(chain, search));
}

// Keeps the root a search has landed on, and any its next step from s = 0 lands on.
void KeepRoots(const Chain& chain, RootSearch& search) {
  bool landed = true;
  while (landed) landed = AcceptAndStepFromZero(chain, search, MakeRoot(chain, search.Point()));
}

// One step of a search, and the roots it lands on.
void Advance(const Chain& chain, RootSearch& search, double delta) {
  if (search.Take(delta)) KeepRoots(chain, search);
}

// Runs a search to its end on its own; between() runs after each step.
template <class Between>
void Complete(const Chain& chain, RootSearch& search, Between between) {
  while (!search.Done()) {
    Advance(chain, search, NewtonStepOf(chain, search));
    between();
  }
}

// The two searches of a recalculation start alike and take the same steps through the same points,
// differing only in when they call a step small enough to end on a root, until one of them lands on
// a root that the other, with its tighter tolerance, steps on from. Up to there each point and each
// root is worked out once for both. Returns when they part or one of them is done.
template <class Between>
void SearchWhileAlike(const Chain& chain, RootSearch& first, RootSearch& second, Between between) {
  while (!first.Done() && !second.Done()) {
    between();
    const double delta = NewtonStepOf(chain, first);
    const bool firstLanded = first.Take(delta);
    const bool secondLanded = second.Take(delta);
    if (firstLanded && secondLanded) {
      const Root root = MakeRoot(chain, first.Point());
      first.Accept(root);
      second.Accept(root);
    } else if (firstLanded || secondLanded) {
      KeepRoots(chain, firstLanded ? first : second);
      return;
    }
  }
}

// One search of a pair, its lane of the chain worked out at its point: there it either takes a
// Newton step, or, when its last step landed on a root, keeps that root. Returns whether it is on a
// root now, which the next round of the pair then works out.
bool AdvanceLane(const Chain& chain, RootSearch& search, bool onRoot, double dB, double d, double delta) {
  if (!onRoot) return search.Take(delta);
  return AcceptAndStepFromZero(chain, search, RootAt(search.Point(), dB, d));
}

// Both searches to their ends, a step of each in turn, worked out side by side; a root one of them
// lands on is worked out side by side with the other's next step.
template <class Between>
void CompleteInterleaved(const Chain& chain, RootSearch& first, RootSearch& second, Between between) {
  bool firstOnRoot = false, secondOnRoot = false;
  while (!first.Done() && !second.Done()) {
    const Pair s(first.Point(), second.Point());
    Pair deflation;
    const auto deflate = [&] { deflation = Deflations(s, first, second); };
    // The second row only for a lane on a root.
    const ChainRows<Pair> p =
        firstOnRoot || secondOnRoot ? ChainsAt<true>(chain, s, deflate) : ChainsAt<false>(chain, s, deflate);
    const Pair delta = NewtonStep(p.first, deflation);
    firstOnRoot = AdvanceLane(chain, first, firstOnRoot, p.first.db.First(), p.d.First(), delta.First());
    secondOnRoot = AdvanceLane(chain, second, secondOnRoot, p.first.db.Second(), p.d.Second(), delta.Second());
    between();
  }
  if (firstOnRoot) KeepRoots(chain, first);
  if (secondOnRoot) KeepRoots(chain, second);
  Complete(chain, first, between);
  Complete(chain, second, between);
}

// The roots of both searches of a recalculation, each as it would have found them alone.
// between() runs after each step, for work that needs the roots found so far.
template <class Between>
void CompleteTogether(const Chain& chain, RootSearch& first, RootSearch& second, Between between) {
  SearchWhileAlike(chain, first, second, between);
  CompleteInterleaved(chain, first, second, between);
}

struct Complex {
  double re = 0.0, im = 0.0;
};

// P ← P·M for complex 2×2 matrices, each element by elm.
void MultiplyRight(Complex (&p)[2][2], const Complex (&m)[2][2]) {
  Complex r[2][2];
  for (int row = 0; row < 2; ++row) {
    for (int col = 0; col < 2; ++col) {
      elm(p[row][0].re, p[row][0].im, m[0][col].re, m[0][col].im, p[row][1].re, p[row][1].im, m[1][col].re,
          m[1][col].im, r[row][col].re, r[row][col].im);
    }
  }
  for (int row = 0; row < 2; ++row) {
    for (int col = 0; col < 2; ++col) p[row][col] = r[row][col];
  }
}

// The transmission matrix of one entry at ω: a mass-less one is [[1, R], [0, 1]]; a massive one has
// A = D = cosh(x(1+i)), B = R·sinh(x(1+i))/(x(1+i)), C = (x/R)(1+i)·sinh(x(1+i)), x = √(ω·R·C·δ/2).
void HarmonicMatrix(const Entry& e, double omega, Complex (&m)[2][2]) {
  if (!e.massive) {
    m[0][0] = {1.0, 0.0};
    m[0][1] = {e.r, 0.0};
    m[1][0] = {0.0, 0.0};
    m[1][1] = {1.0, 0.0};
    return;
  }
  const double x = std::sqrt(omega * e.rc / 2.0);
  const double ex = std::exp(x), emx = std::exp(-x);
  const double cosx = std::cos(x), sinx = std::sin(x);
  const Complex cosh{(ex + emx) * cosx / 2.0, (ex - emx) * sinx / 2.0};
  const Complex sinh{(ex - emx) * cosx / 2.0, (ex + emx) * sinx / 2.0};
  // sinh / (x(1+i)) = sinh·(1-i) / (2x)
  m[0][0] = cosh;
  m[0][1] = {e.r * (sinh.re + sinh.im) / (2.0 * x), e.r * (sinh.im - sinh.re) / (2.0 * x)};
  m[1][0] = {x / e.r * (sinh.re - sinh.im), x / e.r * (sinh.re + sinh.im)};
  m[1][1] = cosh;
}

}  // namespace

// ----- serialisation -----

ADataDef::ErrorCode tagQKWALLCHARACTER::DataInPut(CADataStream stream) {
  tagQKWALL::DataInPut(stream);
  stream.ReadItem(&NHrXs);
  stream.ReadItem(&WHrXs);
  int count = 0;
  stream.ReadItem(&count);
  // A layer takes at least its version and 19 fields: refuse a count the stream cannot hold before
  // reading any, so a damaged count can neither allocate nor loop beyond the bytes that are there.
  constexpr std::size_t kMinLayerBytes = 4 + 18 * 8 + 4;
  if (count < 0 || static_cast<std::size_t>(count) > stream.GetRemaining() / kMinLayerBytes)
    return ADataDef::AD_BADCOUNT;
  for (int i = 0; i < count; ++i) {
    tagQKTIMBERINGCHARACTER layer;
    const ADataDef::ErrorCode result = layer.DataInPut(stream);
    if (result != ADataDef::AD_OK) return result;
    m_arrTimbering.Add(layer);
  }
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKWALLCHARACTER::DataOutPut(CADataStream stream) {
  tagQKWALL::DataOutPut(stream);
  stream.WriteItem(NHrXs);
  stream.WriteItem(WHrXs);
  stream.WriteItem(m_arrTimbering.GetSize());
  for (int i = 0; i < m_arrTimbering.GetSize(); ++i) m_arrTimbering[i].DataOutPut(stream);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKWALLCHARACTER::DataInPro(CADataExchange exchange) {
  tagQKWALL::DataInPro(exchange);
  exchange.ReadItem(L"An", &NHrXs);
  exchange.ReadItem(L"Aw", &WHrXs);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKWALLCHARACTER::DataOutPro(CADataExchange exchange) {
  tagQKWALL::DataOutPro(exchange);
  exchange.WriteItem(L"An", NHrXs);
  exchange.WriteItem(L"Aw", WHrXs);
  return ADataDef::AD_OK;
}

// ----- inputs -----

bool tagQKWALLCHARACTER::SetNHrXs(double value, bool bCal) {
  NHrXs = value;
  if (bCal) Recalculate();
  return true;
}

bool tagQKWALLCHARACTER::SetWHrXs(double value, bool bCal) {
  WHrXs = value;
  if (bCal) Recalculate();
  return true;
}

void tagQKWALLCHARACTER::SetTimberingData(const CQKLayerArray& layers, bool bCal) {
  m_arrTimbering = layers;
  if (bCal) Recalculate();
}

void tagQKWALLCHARACTER::InversionTimbering(bool bCal) {
  for (int i = 0, j = m_arrTimbering.GetSize() - 1; i < j; ++i, --j) std::swap(m_arrTimbering[i], m_arrTimbering[j]);
  if (bCal) Recalculate();
}

void tagQKWALLCHARACTER::ModifyAirFloorWall(CQKLayerArray& working) const {
  working = m_arrTimbering;
  tagQKTIMBERINGCHARACTER surface;
  surface.DrXs = WHrXs;
  working.InsertAt(0, surface);
  surface.DrXs = NHrXs;
  working.Add(surface);
}

// ----- static calculations on a layer list -----

double tagQKWALLCHARACTER::K(const CQKLayerArray& layers, double outside, double inside) {
  const Entries entries(layers, outside, inside);
  return 1.0 / entries.TotalResistance();
}

double tagQKWALLCHARACTER::D(const CQKLayerArray& layers) {
  double d = 0.0;
  for (int i = 0; i < layers.GetSize(); ++i) d += layers[i].GetD();
  return d;
}

namespace {

// Σ δ/λa over every layer but one, plus 1/coefficient for each coefficient above 0.
double OtherResistance(const CQKLayerArray& layers, int except, double coefficient1, double coefficient2) {
  double sum = 0.0;
  for (int j = 0; j < layers.GetSize(); ++j) {
    if (j != except) sum += layers[j].Thick / (layers[j].DrXs * layers[j].DrXsXz);
  }
  if (coefficient1 > 0.0) sum += 1.0 / coefficient1;
  if (coefficient2 > 0.0) sum += 1.0 / coefficient2;
  return sum;
}

double CorrectedConductivity(const tagQKTIMBERINGCHARACTER& layer) { return layer.DrXs * layer.DrXsXz; }

}  // namespace

int tagQKWALLCHARACTER::Thick(CQKLayerArray& layers, double targetK, double coefficient1, double coefficient2) {
  if (layers.GetSize() == 0) return -1;
  int chosen = 0;
  for (int i = 1; i < layers.GetSize(); ++i) {
    if (CorrectedConductivity(layers[i]) < CorrectedConductivity(layers[chosen])) chosen = i;
  }
  const double others = OtherResistance(layers, chosen, coefficient1, coefficient2);
  layers[chosen].Thick = (1.0 / targetK - others) * CorrectedConductivity(layers[chosen]);
  return chosen;
}

void tagQKWALLCHARACTER::ThickEx(CQKLayerArray& layers, double targetK, double coefficient1, double coefficient2) {
  const int count = layers.GetSize();
  if (count == 0) return;
  // Indices by ascending λa, with one pass more than there are layers: that last pass finds no free
  // index and appends 0 again. The surplus entry is harmless and kept.
  std::vector<int> order;
  std::vector<bool> taken(static_cast<std::size_t>(count), false);
  for (int pass = 0; pass <= count; ++pass) {
    int chosen = 0;
    double smallest = 100000.0;
    for (int i = 0; i < count; ++i) {
      if (!taken[static_cast<std::size_t>(i)] && CorrectedConductivity(layers[i]) < smallest) {
        smallest = CorrectedConductivity(layers[i]);
        chosen = i;
      }
    }
    order.push_back(chosen);
    taken[static_cast<std::size_t>(chosen)] = true;
  }
  // The most insulating layer takes the change first; one that would need a thickness ≤ 0 is cut to
  // 0.1 mm and the next is tried, on the thicknesses as changed so far.
  double thickness = -1.0;
  for (int step = 0; thickness <= 0.0 && step <= count; ++step) {
    const int layer = order[static_cast<std::size_t>(step)];
    const double others = OtherResistance(layers, layer, coefficient1, coefficient2);
    thickness = (1.0 / targetK - others) * CorrectedConductivity(layers[layer]);
    layers[layer].Thick = thickness > 0.0 ? thickness : 0.0001;
  }
}

// ----- the periodic calculation -----

namespace {

// The hourly sums of response array 1, over the roots of nuxi's search: the through sum over y and
// the inside sum over x, with the same weights. Each hour adds its roots in their order, whenever
// they come.
class InsideSums {
 public:
  explicit InsideSums(double crxs) {
    m_through[0] = crxs;
    m_inside[0] = crxs;
  }

  // Adds root r to the sums of hour j.
  void Add(const Root& r, int j) {
    const double period = 1.0 - r.e24;
    double weight;
    if (j == 0) {
      weight = (1.0 - r.e23) / period;
    } else if (j == 1) {
      weight = -r.oneMinusE / period;
    } else {
      weight = -r.oneMinusE * std::exp(-(j - 1) * r.beta) / period;
    }
    m_through[j] += r.y * weight;
    m_inside[j] += r.x * weight;
  }

  void Fill(double alphaInside, tagQKWALL& wall) const {
    for (int j = 0; j < kHours; ++j) {
      wall.Response1[j] = (j == 0 ? 1.0 : 0.0) - (m_inside[j] - m_through[j]) / alphaInside;
    }
  }

 private:
  double m_through[kHours] = {};
  double m_inside[kHours] = {};
};

// Harmonics of the daily period from the chained complex transmission matrix, inside surface first;
// then the decrement and the delay of the first.
void FillHarmonics(const Entries& entries, double alphaInside, tagQKWALL& wall) {
  for (int n = 1; n <= kHarmonics; ++n) {
    const double omega = n * kOmegaPerHarmonic;
    Complex p[2][2] = {{{1.0, 0.0}, {0.0, 0.0}}, {{0.0, 0.0}, {1.0, 0.0}}};
    Complex m[2][2];
    for (const Entry& e : entries) {
      HarmonicMatrix(e, omega, m);
      MultiplyRight(p, m);
    }
    const Complex b = p[0][1], x = p[1][1];
    double modulus = 0.0, scaled = 0.0, phase = 0.0;
    vec(wall.CrXs, b.re, b.im, modulus, scaled, phase);
    wall.Harmonic1[n - 1] = scaled;
    wall.Harmonic2[n - 1] = phase;

    double m1 = 0.0, phi1 = 0.0, m2 = 0.0, phi2 = 0.0;
    vec(alphaInside, b.re, b.im, modulus, m1, phi1);
    const double xx = x.re * x.re + x.im * x.im;
    vec(alphaInside, (b.re * x.re + b.im * x.im) / xx, (b.im * x.re - b.re * x.im) / xx, modulus, m2, phi2);
    const double wRe = 1.0 + std::cos(phi1) / m1 - std::cos(phi2) / m2;
    const double wIm = std::sin(phi1) / m1 - std::sin(phi2) / m2;
    vec(1.0, wRe, wIm, modulus, scaled, phase);
    wall.Harmonic3[n - 1] = 1.0 / modulus;
    wall.Harmonic4[n - 1] = phase;
  }
  wall.CrSj = 1.0 / wall.Harmonic1[0];
  wall.CrYc = wall.Harmonic2[0] * 12.0 / std::numbers::pi;
}

// The ramp sums over y/β and x/β and the step sums over y and x of response arrays 2 to 4, over
// the roots of RESP's search. Each hour adds its roots in their order, whenever they come, up to
// the first root whose decay over the hour is 0.
class ResponseSums {
 public:
  explicit ResponseSums(double crxs) {
    m_rampThrough[0] = m_rampInside[0] = m_stepThrough[0] = m_stepInside[0] = crxs;
  }

  // Adds root r to the sums of hour j.
  void Add(const Root& r, int j) {
    if (m_cut[j]) return;
    const double period = 1.0 - r.e24;
    double ramp, step;
    if (j == 0) {
      ramp = r.oneMinusE - r.e23 * r.oneMinusESquared / period;
      step = (1.0 - r.e23) / period;
    } else {
      const double f = j == 1 ? 1.0 : std::exp(-(j - 1) * r.beta);
      if (f == 0.0) {
        m_cut[j] = true;  // every later root decays faster still
        return;
      }
      // -f·(1 - e)²/period and -f·(1 - e)/period, in one division of a pair
      const Pair weights = Pair(-f) * Pair(r.oneMinusESquared, r.oneMinusE) / Pair(period);
      ramp = weights.First();
      step = weights.Second();
    }
    m_rampThrough[j] += r.rampY * ramp;
    m_rampInside[j] += r.rampX * ramp;
    m_stepThrough[j] += r.y * step;
    m_stepInside[j] += r.x * step;
  }

  void Fill(double crxs, double rInside, tagQKWALL& wall) const {
    for (int j = 0; j < kHours; ++j) {
      const double unit = j == 0 ? 1.0 : 0.0;
      wall.Response2[j] = m_rampThrough[j] / crxs;
      wall.Response3[j] = unit - rInside * (m_rampInside[j] - m_rampThrough[j]);
      wall.Response4[j] = unit - rInside * (m_stepInside[j] - m_stepThrough[j]);
    }
  }

 private:
  double m_rampThrough[kHours] = {};
  double m_rampInside[kHours] = {};
  double m_stepThrough[kHours] = {};
  double m_stepInside[kHours] = {};
  bool m_cut[kHours] = {};
};

// Adds the roots of a search to its hourly sums a few terms (one root, one hour) at a time, root by
// root, as far as the roots are sure to be used: while the search runs every root but its last
// (which may yet be dropped to make the count even), once it is done every root it uses. Done
// between Newton steps, this work fills time the processor would spend waiting on a step's long
// chain of dependent operations.
template <class Sums>
class Folder {
 public:
  Folder(const RootSearch& search, Sums& sums) : m_search(search), m_sums(sums) {}

  void Fold(int terms) {
    const int ready = m_search.Done() ? m_search.Used() : m_search.Count() - 1;
    for (; terms > 0 && m_root < ready; --terms) {
      m_sums.Add(m_search.Roots()[m_root], m_hour);
      if (++m_hour == kHours) {
        m_hour = 0;
        ++m_root;
      }
    }
  }

  // Once the search is done.
  void FoldAll() { Fold(kHours * kResponseRoots); }

 private:
  const RootSearch& m_search;
  Sums& m_sums;
  int m_root = 0;
  int m_hour = 0;
};

}  // namespace

// nuxi then RESP, with the working list made once, the roots their two searches share found once,
// and the hourly sums built while the searches run.
void tagQKWALLCHARACTER::Recalculate() {
  Entries entries(m_arrTimbering, WHrXs, NHrXs);
  CrXs = 1.0 / entries.TotalResistance();
  if (!entries.HasPeriodicData()) return;
  entries.LinkSameAngles();
  RootSearch thermal(kThermalRoots, kThermalTolerance);
  RootSearch response(kResponseRoots, kResponseTolerance);
  InsideSums insideSums(CrXs);
  ResponseSums responseSums(CrXs);
  Folder thermalFolder(thermal, insideSums);
  Folder responseFolder(response, responseSums);
  CompleteTogether(Chain(entries), thermal, response, [&] {
    thermalFolder.Fold(kTermsPerStep);
    responseFolder.Fold(kTermsPerStep);
  });
  thermalFolder.FoldAll();
  responseFolder.FoldAll();
  const double alphaInside = 1.0 / entries[0].r;
  insideSums.Fill(alphaInside, *this);
  FillHarmonics(entries, alphaInside, *this);
  responseSums.Fill(CrXs, entries[0].r, *this);
}

void tagQKWALLCHARACTER::nuxi() {
  Entries entries(m_arrTimbering, WHrXs, NHrXs);
  CrXs = 1.0 / entries.TotalResistance();
  if (!entries.HasPeriodicData()) return;
  entries.LinkSameAngles();
  RootSearch thermal(kThermalRoots, kThermalTolerance);
  InsideSums sums(CrXs);
  Folder folder(thermal, sums);
  Complete(Chain(entries), thermal, [&] { folder.Fold(kTermsPerStep); });
  folder.FoldAll();
  const double alphaInside = 1.0 / entries[0].r;
  sums.Fill(alphaInside, *this);
  FillHarmonics(entries, alphaInside, *this);
}

void tagQKWALLCHARACTER::RESP() {
  Entries entries(m_arrTimbering, WHrXs, NHrXs);
  if (!entries.HasPeriodicData()) return;
  entries.LinkSameAngles();
  RootSearch response(kResponseRoots, kResponseTolerance);
  ResponseSums sums(CrXs);
  Folder folder(response, sums);
  Complete(Chain(entries), response, [&] { folder.Fold(kTermsPerStep); });
  folder.FoldAll();
  sums.Fill(CrXs, entries[0].r, *this);
}
