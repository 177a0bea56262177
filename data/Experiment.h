// The record of one measured batch experiment, and how it is drawn.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// One measured experiment, a plain value. Element k of the four arrays is one measured point; they
/// are equally long, at most `kMostPoints`, in the order in which the points were entered.
struct Experiment {
  std::int16_t number = 0;   // as the user gave it
  std::string description;   // UTF-8
  std::vector<double> time;  // of sampling, h
  std::vector<double> Cx;    // cell concentration, g/L
  std::vector<double> Cs;    // substrate concentration, g/L
  std::vector<double> Cp;    // product concentration, g/L
  double finalTime = 0;      // h
  bool verified = false;     // the values have been checked and confirmed

  int Points() const { return static_cast<int>(time.size()); }

  friend bool operator==(const Experiment&, const Experiment&) = default;
};

/// The files hold a 16-bit count.
inline constexpr int kMostPoints = 32767;

/// How the experiment at the same place of the experiment list is drawn on the plots.
struct DisplayEntry {
  std::string marker = "CircCheio";  // marker kind, by name
  std::int32_t colour = 1;           // colour number, 1..6
  std::int16_t line = 1;             // line style: 1 solid, 2 dotted, 3 dashed
  bool visible = true;               // drawn on the plots

  friend bool operator==(const DisplayEntry&, const DisplayEntry&) = default;
};

/// Marker kinds; the marker's number is its index here plus 1.
inline constexpr std::array<std::string_view, 8> kMarkers = {
    "CircCheio", "CircVazio", "QuadCheio", "QuadVazio", "Triang1", "Triang2", "Triang3", "Triang4"};

struct Colour {
  std::string_view name;
  std::uint32_t bgr;  // 0xBBGGRR
};

/// Drawing colours; the colour's number is its index here plus 1.
inline constexpr std::array<Colour, 6> kColours = {{{"Azul", 0xFF0000},
                                                    {"Vermelho", 0x0000FF},
                                                    {"Verde", 0x00FF00},
                                                    {"Amarelo", 0x00FFFF},
                                                    {"Pink", 0xFF00FF},
                                                    {"Preto", 0x000000}}};

inline constexpr std::int16_t kLineStyles = 3;

/// The marker's number 1..8, or 0 for a name that is none of them.
constexpr int MarkerNumber(std::string_view name) {
  const auto at = std::find(kMarkers.begin(), kMarkers.end(), name);
  return at == kMarkers.end() ? 0 : static_cast<int>(at - kMarkers.begin()) + 1;
}

}  // namespace velmora
