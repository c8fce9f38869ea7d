#include "construction/tagQKWALLCHARACTER.h"

#include <array>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

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

// One entry of the working list (surfaces included), as every calculation needs it.
struct Entry {
  double r = 0.0;         // resistance, m²·K/W
  double capacity = 0.0;  // C·δ, W·h/(m²·K); 0 for a mass-less entry
  double rc = 0.0;        // R·C·δ, h
  double sqrtRc = 0.0;    // √(R·C·δ)
  bool massive = false;
};

Entry MakeEntry(const tagQKTIMBERINGCHARACTER& layer) {
  Entry e;
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
  e.massive = true;
  return e;
}

Entry SurfaceEntry(double coefficient) {
  Entry e;
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
    m_data[0] = SurfaceEntry(inside);
    for (int i = layers.GetSize() - 1, k = 1; i >= 0; --i, ++k) m_data[k] = MakeEntry(layers[i]);
    m_data[count - 1] = SurfaceEntry(outside);
  }
  Entries(const Entries&) = delete;
  Entries& operator=(const Entries&) = delete;

  int size() const { return m_count; }
  const Entry& operator[](int i) const { return m_data[i]; }
  const Entry* begin() const { return m_data; }
  const Entry* end() const { return m_data + m_count; }

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
  std::array<Entry, 32> m_inline{};
  std::vector<Entry> m_heap;
  Entry* m_data = nullptr;
  int m_count = 0;
};

// The chained transmission matrix [[A, B], [C, D]] of the wall at a real Laplace variable s ≤ 0,
// with its derivative by s.
struct Chain {
  double a = 1.0, b = 0.0, c = 0.0, d = 1.0;
  double da = 0.0, db = 0.0, dc = 0.0, dd = 0.0;
};

Chain ChainAt(const Entries& entries, double s) {
  Chain p;
  for (const Entry& e : entries) {
    double a = 1.0, b = e.r, c = 0.0, da = 0.0, db = 0.0, dc = 0.0;
    if (e.massive) {
      const double h = e.rc / 2.0;
      if (std::fabs(s) <= kMassless) {
        da = h;
        db = h * e.r / 3.0;
        dc = e.capacity;
      } else {
        const double theta = std::sqrt(-s) * e.sqrtRc;
        const double sinc = std::sin(theta) / theta;
        const double cosine = std::cos(theta);
        a = cosine;
        b = e.r * sinc;
        c = -theta * std::sin(theta) / e.r;
        da = h * sinc;
        db = h * e.r * (sinc - cosine) / (theta * theta);
        dc = e.capacity * (cosine + sinc) / 2.0;
      }
    }
    // A = D for every layer. P ← P·M, and P' ← P'·M + P·M' by the product rule.
    const Chain q = p;
    p.a = q.a * a + q.b * c;
    p.b = q.a * b + q.b * a;
    p.c = q.c * a + q.d * c;
    p.d = q.c * b + q.d * a;
    p.da = q.da * a + q.db * c + q.a * da + q.b * dc;
    p.db = q.da * b + q.db * a + q.a * db + q.b * da;
    p.dc = q.dc * a + q.dd * c + q.c * da + q.d * dc;
    p.dd = q.dc * b + q.dd * a + q.c * db + q.d * da;
  }
  return p;
}

// One root s = -β of B(s) and what the hourly sums need of it.
struct Root {
  double beta = 0.0;
  double oneMinusE = 1.0;        // 1 - e, e = exp(-β) the decay over one hour
  double oneMinusESquared = 1.0;
  double e23 = 0.0;
  double e24 = 0.0;
  double y = 0.0;  // through residue -1/(β·B')
  double x = 0.0;  // inside residue y·D
};

// Newton's method on the negative real axis, each root from s = 0 with the earlier roots deflated.
// Stops at maxRoots or when a root's ramp residues y/β and x/β are both below tolerance; then an
// even number of roots is used. Returns the number of roots used.
int FindRoots(const Entries& entries, int maxRoots, double tolerance, Root* roots) {
  std::array<double, kResponseRoots> found{};
  for (int k = 0; k < maxRoots; ++k) {
    double s = 0.0;
    bool converged = false;
    for (int step = 0; step < kMaxNewtonSteps && !converged; ++step) {
      const Chain p = ChainAt(entries, s);
      double deflation = 0.0;
      for (int m = 0; m < k; ++m) deflation += 1.0 / (s - found[m]);
      const double delta = p.b / (p.db - p.b * deflation);
      if (!std::isfinite(delta)) return k - k % 2;
      s -= delta;
      if (s > 0.0) s = -s;
      converged = std::fabs(delta) <= tolerance;
    }
    if (!converged) return k - k % 2;
    found[k] = s;

    const Chain p = ChainAt(entries, s);
    Root& root = roots[k];
    root.beta = -s;
    root.y = -1.0 / (root.beta * p.db);
    root.x = root.y * p.d;
    const double e = std::exp(-root.beta);
    if (std::fabs(e) > kMassless) {
      root.oneMinusE = 1.0 - e;
      root.oneMinusESquared = root.oneMinusE * root.oneMinusE;
      root.e23 = std::pow(e, 23);
      root.e24 = root.e23 * e;
    }
    if (std::fabs(root.y / root.beta) < tolerance && std::fabs(root.x / root.beta) < tolerance) {
      const int used = k + 1;
      return used - used % 2;
    }
  }
  return maxRoots;
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

void tagQKWALLCHARACTER::Recalculate() {
  nuxi();
  RESP();
}

void tagQKWALLCHARACTER::nuxi() {
  const Entries entries(m_arrTimbering, WHrXs, NHrXs);
  CrXs = 1.0 / entries.TotalResistance();
  if (!entries.HasPeriodicData()) return;
  const double alphaInside = 1.0 / entries[0].r;

  // Response array 1: the inside-surface response from the roots of B(s).
  std::array<Root, kThermalRoots> roots;
  const int used = FindRoots(entries, kThermalRoots, kThermalTolerance, roots.data());
  for (int j = 0; j < kHours; ++j) {
    double through = j == 0 ? CrXs : 0.0;
    double inside = through;
    for (int k = 0; k < used; ++k) {
      const Root& r = roots[static_cast<std::size_t>(k)];
      const double period = 1.0 - r.e24;
      double weight;
      if (j == 0) {
        weight = (1.0 - r.e23) / period;
      } else if (j == 1) {
        weight = -r.oneMinusE / period;
      } else {
        weight = -r.oneMinusE * std::exp(-(j - 1) * r.beta) / period;
      }
      through += r.y * weight;
      inside += r.x * weight;
    }
    Response1[j] = (j == 0 ? 1.0 : 0.0) - (inside - through) / alphaInside;
  }

  // Harmonics of the daily period: the chained complex transmission matrix, inside surface first.
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
    vec(CrXs, b.re, b.im, modulus, scaled, phase);
    Harmonic1[n - 1] = scaled;
    Harmonic2[n - 1] = phase;

    double m1 = 0.0, phi1 = 0.0, m2 = 0.0, phi2 = 0.0;
    vec(alphaInside, b.re, b.im, modulus, m1, phi1);
    const double xx = x.re * x.re + x.im * x.im;
    vec(alphaInside, (b.re * x.re + b.im * x.im) / xx, (b.im * x.re - b.re * x.im) / xx, modulus, m2, phi2);
    const double wRe = 1.0 + std::cos(phi1) / m1 - std::cos(phi2) / m2;
    const double wIm = std::sin(phi1) / m1 - std::sin(phi2) / m2;
    vec(1.0, wRe, wIm, modulus, scaled, phase);
    Harmonic3[n - 1] = 1.0 / modulus;
    Harmonic4[n - 1] = phase;
  }
  CrSj = 1.0 / Harmonic1[0];
  CrYc = Harmonic2[0] * 12.0 / std::numbers::pi;
}

void tagQKWALLCHARACTER::RESP() {
  const Entries entries(m_arrTimbering, WHrXs, NHrXs);
  if (!entries.HasPeriodicData()) return;
  const double rInside = entries[0].r;

  std::array<Root, kResponseRoots> roots;
  const int used = FindRoots(entries, kResponseRoots, kResponseTolerance, roots.data());
  for (int j = 0; j < kHours; ++j) {
    // Ramp sums over y/β and x/β, step sums over y and x.
    double rampThrough = j == 0 ? CrXs : 0.0, rampInside = rampThrough;
    double stepThrough = rampThrough, stepInside = rampThrough;
    for (int k = 0; k < used; ++k) {
      const Root& r = roots[static_cast<std::size_t>(k)];
      const double period = 1.0 - r.e24;
      double ramp, step;
      if (j == 0) {
        ramp = r.oneMinusE - r.e23 * r.oneMinusESquared / period;
        step = (1.0 - r.e23) / period;
      } else {
        const double f = j == 1 ? 1.0 : std::exp(-(j - 1) * r.beta);
        if (f == 0.0) break;  // every later root decays faster still
        ramp = -f * r.oneMinusESquared / period;
        step = -f * r.oneMinusE / period;
      }
      rampThrough += r.y / r.beta * ramp;
      rampInside += r.x / r.beta * ramp;
      stepThrough += r.y * step;
      stepInside += r.x * step;
    }
    const double unit = j == 0 ? 1.0 : 0.0;
    Response2[j] = rampThrough / CrXs;
    Response3[j] = unit - rInside * (rampInside - rampThrough);
    Response4[j] = unit - rInside * (stepInside - stepThrough);
  }
}
