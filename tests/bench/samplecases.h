// Cases of loading and saving as data: files, the commands to give, what the user notices and the show
// afterwards. Each stands in a folder of tests/data/samples.
#pragma once

#include "bench/bench.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace quorvane {

// The folders whose names end like this, in order.
std::vector<std::string> SampleFolders(const std::string& ending);
nlohmann::json SampleExpectation(const std::string& folder);
std::filesystem::path SampleFile(const std::string& folder, const std::string& file);
std::string BytesOf(const std::filesystem::path& file);

class SampleBench : public Bench {
protected:
    // Gives one command of the case and compares what was noticed and the show with the expectation:
    // "state", or with "unchanged_but" the show as it was before with these differences.
    void RunCommand(const nlohmann::json& command);
    void CompareLog(const nlohmann::json& expected);
    void CompareState(const nlohmann::json& expected);
    // "APP\show.CFG" as a path of this test's program folder.
    std::string HerePath(std::string path) const;

    void OpenColourWindow();
};

} // namespace quorvane
