#include "tests/minizinc/instances.h"

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <stdexcept>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

using Paths = std::set<std::filesystem::path>;

Paths FilesWithExtension(const std::filesystem::path& folder, const char* extension) {
  Paths paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == extension) paths.insert(entry.path());
  }
  return paths;
}

}  // namespace

void PrintTo(const Instance& instance, std::ostream* out) { *out << instance.name; }

std::vector<Instance> ReadInstances() {
  static const std::regex answer_line("% Answer(?: with (\\S+))?: (.*)\\.");
  const std::string folder = "examples/minizinc";
  const std::filesystem::path path = std::filesystem::path(KIV_SOURCE_DIR) / folder;
  Paths unused = FilesWithExtension(path, ".dzn");
  std::vector<Instance> instances;
  for (const auto& model : FilesWithExtension(path, ".mzn")) {
    const std::size_t before = instances.size();
    for (const std::string& line :
         Lines(ReadSourceFile(folder + '/' + model.filename().string()))) {
      std::smatch match;
      if (!std::regex_match(line, match, answer_line)) continue;
      Instance instance{model.stem(), {model}, match[2]};
      if (match[1].matched) {
        const std::filesystem::path data = path / match[1].str();
        instance.name = data.stem();
        instance.files.push_back(data);
        unused.erase(data);
      }
      instances.push_back(std::move(instance));
    }
    if (instances.size() == before) throw std::runtime_error(model.string() + " says no answer");
  }
  if (!unused.empty()) throw std::runtime_error("no model uses " + unused.begin()->string());
  return instances;
}

}  // namespace kiv::test
