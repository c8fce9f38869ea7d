#include "Wall.h"

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <optional>
#include <string>
#include <utility>

#include "answers/wall/WallAnswer.h"
#include "answers/wall/WallInput.h"
#include "construction/CQKWallData.h"

namespace py = pybind11;

namespace qkdbpy {

namespace {

py::value_error Unreachable() {
  return py::value_error("the U asked for cannot be reached: the other layers and the surfaces alone give a lower U");
}

// The wall of a JSON text as "qkdb wall" reads it ({"layers": [...], "inside": …}), calculated as the
// tool calculates it.
class Wall {
 public:
  Wall(const std::string& json, bool force) : m_wall(qkdb::ParseWall(json, {force, "force=True"})) {
    qkdb::CalculateWall(m_wall);
  }

  double U() const { return m_wall.CrXs; }
  double UWinter() const { return m_wall.DjCrXs; }
  double UInternal() const { return m_wall.NCrXs; }
  double D() const { return m_wall.CalD(); }
  double Decrement() const { return m_wall.CrSj; }
  double DelayH() const { return m_wall.CrYc; }
  double Nu() const { return qkdb::Nu(m_wall); }
  double Inside() const { return m_wall.GetNHrXsData(); }

  py::array_t<double> Harmonics() const {
    py::array_t<double> out({12, 4});
    auto a = out.mutable_unchecked<2>();
    for (py::ssize_t n = 0; n < 12; ++n) {
      a(n, 0) = m_wall.Harmonic1[n];
      a(n, 1) = m_wall.Harmonic2[n];
      a(n, 2) = m_wall.Harmonic3[n];
      a(n, 3) = m_wall.Harmonic4[n];
    }
    return out;
  }

  py::array_t<double> Response() const {
    py::array_t<double> out({4, 24});
    auto a = out.mutable_unchecked<2>();
    for (py::ssize_t h = 0; h < 24; ++h) {
      a(0, h) = m_wall.Response1[h];
      a(1, h) = m_wall.Response2[h];
      a(2, h) = m_wall.Response3[h];
      a(3, h) = m_wall.Response4[h];
    }
    return out;
  }

  // (layer, thickness in m) that gives the wall the U asked for. Without a layer, the one the library
  // chooses (CurrectThick); with one, that layer: its resistance becomes what the other layers and the
  // surfaces leave of 1/u.
  std::pair<int, double> ThicknessFor(double u, std::optional<int> layer, bool winter) const {
    if (!(u > 0.0)) throw py::value_error("the U asked for must be positive, W/(m²·K)");
    qkdb::ThicknessAnswer answer;
    try {
      answer = qkdb::ThicknessFor(m_wall, u, layer, winter);
    } catch (const qkdb::ThicknessError& e) {
      if (e.kind == qkdb::ThicknessError::Kind::kNoSuchLayer) throw py::index_error(e.what());
      throw py::value_error(e.what());
    }
    if (answer.thickness < 0.0) throw Unreachable();
    return {answer.layer, answer.thickness};
  }

 private:
  CQKWallData m_wall;
};

}  // namespace

void DefineWall(py::module_& m) {
  py::class_<Wall>(m, "_Wall")
      .def(py::init<const std::string&, bool>(), py::arg("json"), py::arg("force") = false)
      .def_property_readonly("u", &Wall::U)
      .def_property_readonly("u_winter", &Wall::UWinter)
      .def_property_readonly("u_internal", &Wall::UInternal)
      .def_property_readonly("d", &Wall::D)
      .def_property_readonly("decrement", &Wall::Decrement)
      .def_property_readonly("delay_h", &Wall::DelayH)
      .def_property_readonly("nu", &Wall::Nu)
      .def_property_readonly("inside", &Wall::Inside)
      .def_property_readonly("harmonics", &Wall::Harmonics)
      .def_property_readonly("response", &Wall::Response)
      .def("thickness_for", &Wall::ThicknessFor, py::arg("u"), py::arg("layer") = std::nullopt, py::arg("winter") = false);
}

}  // namespace qkdbpy
