// Worked cases in tests/data/samples: inputs and what the program must make of them.
#pragma once

#include "bench/bench.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace quorvane {

std::filesystem::path SampleFolder(const std::string& name);
nlohmann::json Sample(const std::string& name); // its expected.json

std::vector<std::uint8_t> FromHex(const std::string& hex);
std::string ToHex(const std::vector<std::uint8_t>& bytes);

PerChannel<std::uint8_t> LevelsOf(const nlohmann::json& four);
// The levels of the wall's elements now, one list of four each.
nlohmann::json LiveLevels();
// Wall, patch, corrections and parameter block as a case's "config" names them.
void BuildWallOf(const nlohmann::json& config);
void TakeSequenceOf(const nlohmann::json& sequence);

} // namespace quorvane
