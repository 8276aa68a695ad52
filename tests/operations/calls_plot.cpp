#include "calls_plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace operations {
namespace {

constexpr double kPanelWidth = 470;
constexpr double kPlotLeft = 60;
constexpr double kPlotWidth = 380;
constexpr double kPlotTop = 40;
constexpr double kPlotHeight = 360;
constexpr double kLegendTop = 460;
constexpr double kLegendLine = 18;

constexpr const char* kColours[] = {"#1f77b4", "#d62728", "#2ca02c", "#9467bd",
                                    "#ff7f0e", "#8c564b", "#17becf", "#555555"};

const char* colour(std::size_t i) { return kColours[i % std::size(kColours)]; }

std::string number(double value) {
  char text[32];
  (void)std::snprintf(text, sizeof(text), "%.1f", value);
  return text;
}

std::string text_at(double x, double y, const char* anchor, const std::string& text) {
  return "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" text-anchor=\"" + anchor + "\">" +
         text + "</text>\n";
}

std::string line(double x1, double y1, double x2, double y2) {
  return "<line x1=\"" + number(x1) + "\" y1=\"" + number(y1) + "\" x2=\"" + number(x2) +
         "\" y2=\"" + number(y2) + "\" stroke=\"#cccccc\"/>\n";
}

// Places values of one panel.
class Scale {
 public:
  Scale(const std::vector<long>& sizes, const Panel& panel, double left)
      : left_(left + kPlotLeft), last_size_(std::log10(static_cast<double>(sizes.back()))) {
    double highest = 1;
    for (const Curve& curve : panel.curves) {
      for (const long value : curve.values) highest = std::max(highest, static_cast<double>(value));
    }
    decades_ = static_cast<int>(std::ceil(std::log10(highest)));
  }

  int decades() const { return decades_; }
  double x(long size) const {
    return left_ + kPlotWidth * std::log10(static_cast<double>(size)) / last_size_;
  }
  double y(double value) const {
    return kPlotTop + kPlotHeight * (1 - std::log10(value) / decades_);
  }
  double left() const { return left_; }

 private:
  double left_;
  double last_size_;
  int decades_ = 1;
};

std::string axes(const std::vector<long>& sizes, const Panel& panel, const Scale& scale) {
  std::string svg = text_at(scale.left() + kPlotWidth / 2, kPlotTop - 16, "middle", panel.title);
  for (int decade = 0; decade <= scale.decades(); ++decade) {
    const double y = scale.y(std::pow(10, decade));
    svg += line(scale.left(), y, scale.left() + kPlotWidth, y);
    svg += text_at(scale.left() - 6, y + 4, "end",
                   "1" + std::string(static_cast<std::size_t>(decade), '0'));
  }
  for (const long size : sizes) {
    svg += line(scale.x(size), kPlotTop, scale.x(size), kPlotTop + kPlotHeight);
    svg += text_at(scale.x(size), kPlotTop + kPlotHeight + 16, "middle", std::to_string(size));
  }
  return svg + text_at(scale.left() + kPlotWidth / 2, kPlotTop + kPlotHeight + 34, "middle",
                       "connections");
}

std::string curve_of(const Curve& curve, const std::vector<long>& sizes, const Scale& scale,
                     std::size_t index) {
  std::string points;
  for (std::size_t i = 0; i < curve.values.size(); ++i) {
    if (curve.values[i] <= 0) continue;
    points += number(scale.x(sizes[i])) + ',' +
              number(scale.y(static_cast<double>(curve.values[i]))) + ' ';
  }
  return "<polyline points=\"" + points + "\" fill=\"none\" stroke-width=\"2\" stroke=\"" +
         colour(index) + "\"/>\n";
}

std::string legend(const std::vector<Curve>& curves) {
  std::string svg;
  for (std::size_t i = 0; i < curves.size(); ++i) {
    const std::size_t row = i / 2;
    const double y = kLegendTop + kLegendLine * static_cast<double>(row);
    const double x = kPlotLeft + (i % 2 == 0 ? 0 : kPanelWidth);
    svg += "<rect x=\"" + number(x) + "\" y=\"" + number(y - 4) +
           "\" width=\"24\" height=\"3\" fill=\"" + colour(i) + "\"/>\n";
    svg += text_at(x + 30, y + 2, "start", curves[i].name);
  }
  return svg;
}

}  // namespace

std::string plot(const std::vector<long>& sizes, const std::vector<Panel>& panels) {
  const double width = kPanelWidth * static_cast<double>(panels.size());
  const std::vector<Curve>& named = panels.front().curves;
  const std::size_t rows = (named.size() + 1) / 2;
  const double height = kLegendTop + kLegendLine * static_cast<double>(rows);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + number(width) +
                    " " + number(height) +
                    "\" font-family=\"sans-serif\" font-size=\"12\">\n"
                    "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  for (std::size_t i = 0; i < panels.size(); ++i) {
    const Scale scale(sizes, panels[i], kPanelWidth * static_cast<double>(i));
    svg += axes(sizes, panels[i], scale);
    for (std::size_t k = 0; k < panels[i].curves.size(); ++k) {
      svg += curve_of(panels[i].curves[k], sizes, scale, k);
    }
  }
  return svg + legend(named) + "</svg>\n";
}

}  // namespace operations
