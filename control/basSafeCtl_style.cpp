#include "control/basSafeCtl_style.h"

#include <array>

namespace tabulon {

using platform::rgb;
using platform::system_colour::window;

namespace {

constexpr std::array<Style, 6> styles{{
    {window, window, "", "", ""},
    {rgb(224, 224, 224), window, " Beslissingsvariabele ", " Beslissingsvariabele bij doelfunctie F", ""},
    {rgb(218, 220, 254), rgb(218, 220, 254), " Spelingsvariabele bij <= restricties ",
     " Spelingsvariabele bij doelfunctie F", " Spelingsvariabele bij <= restricties "},
    {rgb(192, 255, 192), rgb(192, 255, 192), " Surplusvariabele bij >= restricties ",
     " Surplusvariabele bij doelfunctie F", " Surplusvariabele bij >= restricties "},
    {rgb(128, 255, 128), rgb(128, 255, 128), " Kunstmatige variabele bij >= restricties ",
     " Kunstmatige variabele bij doelfunctie F", " Kunstmatige variabele bij >= restricties "},
    {rgb(255, 192, 192), rgb(255, 192, 192), " Kunstmatige variabele bij = restricties",
     " Kunstmatige variabele bij doelfunctie F", " Kunstmatige variabele bij = restricties "},
}};

constexpr std::array<RowStyle, 3> row_styles{{
    {rgb(242, 243, 255), " Beslissingsvariabele bij <= restricties "},
    {rgb(233, 251, 230), " Beslissingsvariabele bij >= restricties "},
    {rgb(253, 237, 236), " Beslissingsvariabele bij = restricties "},
}};

}  // namespace

const Style& style_of(VariableKind kind) {
  return styles[static_cast<std::size_t>(kind)];
}
const RowStyle& style_of(RowKind kind) {
  return row_styles[static_cast<std::size_t>(kind)];
}

}  // namespace tabulon
