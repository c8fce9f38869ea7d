// _qkdb: the native part of the Python package qkdb (python/qkdb/__init__.py is the interface).

#include <pybind11/pybind11.h>

#include "text/CsvTable.h"
#include "Database.h"
#include "Errors.h"
#include "Wall.h"
#include "answers/wall/WallInput.h"

namespace py = pybind11;

PYBIND11_MODULE(_qkdb, m) {
  m.doc() = "The native part of qkdb; use the package's interface (import qkdb).";
  // The tool's one-line messages become the exceptions a script expects: input it cannot use is a
  // ValueError, a database that cannot be used too.
  py::register_exception_translator([](std::exception_ptr error) {
    try {
      if (error) std::rethrow_exception(error);
    } catch (const qkdb::InputError& e) {
      PyErr_SetString(PyExc_ValueError, e.what());
    } catch (const qkdb::DataError& e) {
      PyErr_SetString(PyExc_ValueError, e.what());
    } catch (const qkdbpy::NotFound& e) {
      PyErr_SetString(PyExc_LookupError, e.what());
    }
  });
  qkdbpy::DefineWall(m);
  qkdbpy::DefineDatabase(m);
}
