// Colours that people can read, and icons that they can tell apart.

#include "ui/look/Theme.h"

#include <QPainter>
#include <cmath>

#include "ui/Person.h"
#include "ui/look/Symbols.h"

namespace broomtide {
namespace {

using ui::Theme;
using ui::Tone;

QPalette palette(const QColor& behind, const QColor& inFront) {
  QPalette result;
  result.setColor(QPalette::Window, behind);
  result.setColor(QPalette::WindowText, inFront);
  return result;
}

const Theme& light() { return Theme::of(palette(Qt::white, Qt::black)); }
const Theme& dark() { return Theme::of(palette(Qt::black, Qt::white)); }

// The relative luminance that the guidelines for accessible web content define.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

// What is seen of a translucent colour over another one.
QColor over(const QColor& behind, const QColor& translucent) {
  QImage image(1, 1, QImage::Format_ARGB32);
  image.fill(behind);
  QPainter(&image).fillRect(image.rect(), translucent);
  return image.pixelColor(0, 0);
}

TEST(Colours, AreReadable) {
  constexpr double least = 4.5;
  for (const Theme* theme : {&light(), &dark()}) {
    for (const Tone tone : {Tone::primary, Tone::secondary, Tone::tertiary, Tone::accent,
                            Tone::safe, Tone::usuallySafe, Tone::reviewFirst}) {
      const QColor colour = theme->colour(tone);
      for (const QColor& behind : {theme->window, theme->card, theme->cardHovered})
        EXPECT_GE(contrast(colour, behind), least)
            << colour.name().toStdString() << " on " << behind.name().toStdString();
    }
    EXPECT_GE(contrast(theme->onAccent, theme->accent), least);
    for (const SafetyLevel level :
         {SafetyLevel::safe, SafetyLevel::usuallySafe, SafetyLevel::reviewFirst}) {
      const QColor colour = theme->colour(ui::toneOf(level));
      const QColor badge = Theme::faint(colour);
      EXPECT_NEAR(badge.alphaF(), 0.12, 0.005);
      for (const QColor& behind : {theme->card, theme->cardHovered})
        EXPECT_GE(contrast(colour, over(behind, badge)), least) << colour.name().toStdString();
    }
  }
}

TEST(Colours, FollowThePalette) {
  EXPECT_NE(&light(), &dark());
  for (const auto& [behind, inFront, isDark] : std::vector<std::tuple<QColor, QColor, bool>>{
           {"#2a2e32", "#fcfcfc", true},
           {"#242424", "#ffffff", true},
           {"#303030", "#202020", true},  // words that were set for the light theme
           {"#777777", "#eeeeee", true},
           {"#eff0f1", "#232629", false},
           {"#ffffff", "#000000", false},
           {"#aaaaaa", "#000000", false},
       }) {
    EXPECT_EQ(&Theme::of(palette(behind, inFront)), isDark ? &dark() : &light())
        << behind.name().toStdString();
  }
  EXPECT_EQ(&Theme::of(light().palette()), &light());
  EXPECT_EQ(&Theme::of(dark().palette()), &dark());
}

TEST(Colours, ChangeWithTheDesktop) {
  const QPalette former = QApplication::palette();
  test::TestWindow test;
  test::show(test.window());
  for (const Theme* theme : {&dark(), &light(), &dark()}) {
    QApplication::setPalette(theme->palette());
    QCoreApplication::processEvents();
    for (const QLabel* label : test.window().findChildren<QLabel*>()) {
      const QColor colour = label->palette().color(QPalette::WindowText);
      EXPECT_EQ(colour, label->objectName() == "title" ? theme->text : theme->secondary)
          << label->text().toStdString();
    }
    EXPECT_EQ(test.window().grab().toImage().pixelColor(2, 700), theme->window);
  }
  QApplication::setPalette(former);
}

const std::vector<QString> symbolNames{"shippingbox.fill",
                                       "internaldrive.fill",
                                       "arrow.down.circle.fill",
                                       "laptopcomputer",
                                       "icloud.slash",
                                       "trash",
                                       "checklist",
                                       "folder",
                                       "chevron.left",
                                       "chevron.right",
                                       "chevron.down",
                                       "house",
                                       "checkmark",
                                       "checkmark.circle",
                                       "checkmark.circle.fill",
                                       "folder.fill",
                                       "doc.fill",
                                       "shippingbox",
                                       "exclamationmark.triangle",
                                       "exclamationmark.circle.fill",
                                       "trash.circle.fill",
                                       "clock",
                                       "magnifyingglass",
                                       "doc.on.doc",
                                       "BrandMark"};

QImage drawn(const QString& name, const QColor& colour, int ratio) {
  constexpr int side = 24;
  QImage image(side * ratio, side * ratio, QImage::Format_ARGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  ui::symbols::paint(painter, name, colour, QRect(0, 0, side, side));
  return image;
}

// How many pixels are covered, and how many of those in another colour.
std::pair<int, int> count(const QImage& image, const QColor& colour) {
  std::pair<int, int> result;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      if (pixel.alpha() < 255) continue;
      ++result.first;
      if (pixel.rgb() != colour.rgb()) ++result.second;
    }
  }
  return result;
}

// How much of the area differs, 0 to 1.
double difference(const QImage& a, const QImage& b) {
  int sum = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x)
      sum += std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y)));
  }
  return sum / 255.0 / (a.width() * a.height());
}

TEST(Symbols, AreDrawnInTheColourThatIsAskedFor) {
  for (const QString& name : symbolNames) {
    for (const QColor& colour : {light().accent, dark().reviewFirst, QColor(Qt::black)}) {
      for (const int ratio : {1, 2}) {
        const auto [covered, otherwise] = count(drawn(name, colour, ratio), colour);
        EXPECT_GT(covered, 10 * ratio) << name.toStdString();
        if (name != "BrandMark") {
          EXPECT_EQ(otherwise, 0) << name.toStdString();
        }
      }
    }
  }
}

TEST(Symbols, AreSharpOnAFineScreen) {
  for (const QString& name : symbolNames) {
    const QImage fine = drawn(name, Qt::black, 2);
    const QImage coarse = drawn(name, Qt::black, 1);
    const QImage scaled = coarse.scaled(fine.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    EXPECT_GT(difference(fine, scaled), 0.001) << name.toStdString();
    // It is the same drawing, in the same place.
    EXPECT_LT(difference(fine, scaled), 0.15) << name.toStdString();
  }
}

TEST(Symbols, CanBeToldApart) {
  for (std::size_t a = 0; a < symbolNames.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) {
      EXPECT_GT(
          difference(drawn(symbolNames[a], Qt::black, 1), drawn(symbolNames[b], Qt::black, 1)),
          0.03)
          << symbolNames[a].toStdString() << " and " << symbolNames[b].toStdString();
    }
  }
}

}  // namespace
}  // namespace broomtide
