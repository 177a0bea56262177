// JSON text. Numbers are the shortest that read back as the same double.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora::cli::json {

/// `value` must be finite: JSON has no other numbers.
std::string Number(double value);
std::string Text(std::string_view utf8);
/// Both take members that are JSON text already.
std::string Array(const std::vector<std::string>& members);
std::string Object(std::initializer_list<std::pair<std::string_view, std::string>> members);
std::string Numbers(std::span<const double> values);

}  // namespace velmora::cli::json
