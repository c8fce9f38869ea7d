#pragma once
// qkdb wall [FILE]: the thermal characteristics of one wall (see answers/wall/WallInput.h for its
// JSON). By default a report an engineer reads: the layers, U in summer, in winter and between two
// rooms, R, the inertia index, ISO 13786's decrement factor and delay, GB 50176's 衰减倍数 and 延迟时间,
// and the hourly response terms. With --json the same figures and the 12 harmonics, every digit kept.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class WallCommand {
 public:
  explicit WallCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0, or 2 for input that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_file;
  bool m_json = false;
  bool m_force = false;
};

}  // namespace qkdb
