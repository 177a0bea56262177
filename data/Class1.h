// The record of one measured batch experiment, and how it is drawn.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// One measured experiment, a plain value. Element k of the four arrays is one measured point; they
/// all hold `NDados` elements, in the order in which the points were entered.
struct Class1 {
  std::int16_t NExp = 0;          // experiment number as the user gave it
  std::int16_t NDados = 0;        // number of measured points
  std::string NComentarios;       // brief description, UTF-8
  std::vector<double> NVetCx;     // cell concentration, g/L
  std::vector<double> NVetCs;     // substrate concentration, g/L
  std::vector<double> NVetCp;     // product concentration, g/L
  std::vector<double> NVetTempo;  // sampling time, h
  double NTempoFinal = 0;         // final time, h
  bool NVerificado = false;       // the values have been checked and confirmed

  friend bool operator==(const Class1&, const Class1&) = default;
};

/// `NDados` is a 16-bit count.
inline constexpr int kMostPoints = 32767;

/// How the experiment at the same place of the experiment list is drawn on the plots.
struct DisplayEntry {
  std::string NMarcador = "CircCheio";  // marker kind, by name
  std::int32_t NCor = 1;                // colour number, 1..6
  std::int16_t NLinha = 1;              // line style: 1 solid, 2 dotted, 3 dashed
  bool NGrafVisivel = true;             // drawn on the plots
  std::int16_t NNumExpGraf = 0;         // NExp of the experiment

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

/// The marker's number 1..8, or 0 for a name that is none of them.
int MarkerNumber(std::string_view name);

}  // namespace velmora
