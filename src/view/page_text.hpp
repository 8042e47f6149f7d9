// Text of the page: the page font, the character cell measured from it, and
// a cache of shaped texts. Every text of the page is shaped once by Pango and
// kept as positioned glyphs, so that painting a page is a handful of Cairo
// glyph calls instead of thousands of Pango layouts. Hinting is off, so the
// same shapes serve a window, an image and a PDF at any scale.
#pragma once

#include <cairo.h>
#include <pango/pangocairo.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "settings/settings.hpp"
#include "view/cairo_handles.hpp"

namespace sk::view {

// Family used when the settings name none, and the family of the model-5
// shift plan.
inline constexpr std::string_view kDefaultFamily = "DejaVu Sans";
inline constexpr std::string_view kPlanFamily = "FreeSans";

// The page font as the settings hold it: family, size in points, style flags
// (1 bold, 2 italic).
struct FontSpec {
    std::string family{kDefaultFamily};
    int size = 10;
    int style = 0;
    friend bool operator==(const FontSpec&, const FontSpec&) = default;
};

FontSpec font_spec(const settings::Settings& settings);
// The font of a model's page: the plan family for model 5, else `font`.
FontSpec font_for_model(const FontSpec& font, int model);

// One character cell in device pixels at 96 dpi, whole numbers: the width of
// a digit and the line height of the font.
struct CellSize {
    double width = 0;
    double height = 0;
};

// The variants of the page font that the page uses; sizes relative to the
// page font.
enum class TextStyle : std::uint8_t { Regular, Bold, Small, SmallBold, Large };
inline constexpr int kTextStyleCount = 5;

// Glyphs of one font, positioned relative to the left end of the text's
// baseline.
struct GlyphRun {
    ScaledFontRef font;
    std::vector<cairo_glyph_t> glyphs;
};

struct ShapedText {
    double width = 0;     // advance width in pixels
    double height = 0;    // line height
    double baseline = 0;  // from the top of the line
    std::vector<GlyphRun> runs;
};

// Texts and symbols rasterised for painting onto image surfaces
// (image_painter.cpp); kept with the shaper whose glyphs they hold.
class Stamps;
struct StampsDeleter {
    void operator()(Stamps* stamps) const;
};

class TextShaper {
public:
    explicit TextShaper(const FontSpec& font);
    TextShaper(const TextShaper&) = delete;
    TextShaper& operator=(const TextShaper&) = delete;

    const FontSpec& font() const { return m_font; }
    CellSize cell() const { return m_cell; }
    // The shaped text, made on first use and kept for the shaper's life.
    const ShapedText& shape(TextStyle style, std::string_view text);
    Stamps& stamps();

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
    };
    using Cache = std::unordered_map<std::string, ShapedText, Hash, std::equal_to<>>;

    ShapedText make(TextStyle style, std::string_view text) const;

    FontSpec m_font;
    GObjectPtr<PangoFontMap> m_font_map;
    GObjectPtr<PangoContext> m_context;
    std::array<FontDescriptionPtr, kTextStyleCount> m_descriptions;
    std::array<Cache, kTextStyleCount> m_cache;
    CellSize m_cell;
    std::unique_ptr<Stamps, StampsDeleter> m_stamps;
};

}  // namespace sk::view
