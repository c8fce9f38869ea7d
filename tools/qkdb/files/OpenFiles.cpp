#include "files/OpenFiles.h"

#include <unistd.h>

#include <fstream>

namespace qkdb {

namespace fs = std::filesystem;

std::vector<std::string> ProcessesHolding(const fs::path& file) {
  std::vector<std::string> holders;
#ifdef __linux__
  std::error_code ec;
  const fs::path target = fs::weakly_canonical(fs::absolute(file, ec), ec);
  const std::string names[] = {target.string(), target.string() + "-journal", target.string() + "-wal"};
  const std::string self = std::to_string(getpid());
  for (const auto& process : fs::directory_iterator("/proc", ec)) {
    const std::string pid = process.path().filename().string();
    if (pid.find_first_not_of("0123456789") != std::string::npos || pid == self) continue;
    std::error_code denied;  // a process of another user, or one that ended meanwhile
    for (const auto& fd : fs::directory_iterator(process.path() / "fd", denied)) {
      const std::string open = fs::read_symlink(fd.path(), denied).string();
      if (open != names[0] && open != names[1] && open != names[2]) continue;
      std::string command;
      std::getline(std::ifstream(process.path() / "comm"), command);
      holders.push_back("pid " + pid + " (" + command + ")");
      break;
    }
  }
#else
  (void)file;
#endif
  return holders;
}

std::string RefuseToReplaceHeld(const fs::path& file, const std::string& option) {
  const std::vector<std::string> holders = ProcessesHolding(file);
  if (holders.empty()) return "";
  std::string who;
  for (const auto& holder : holders) who += (who.empty() ? "" : ", ") + holder;
  return file.string() + " is open in another program (" + who +
         "), which would go on writing the replaced file and lose its writes; close it first, or add " + option;
}

}  // namespace qkdb
