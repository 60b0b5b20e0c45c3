// Colours that people can read, and icons that they can tell apart.

#include "ui/look/Theme.h"

#include <QDir>
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
    EXPECT_NEAR(theme->colour(Tone::safe).hue(), 125, 35);        // green
    EXPECT_NEAR(theme->colour(Tone::usuallySafe).hue(), 32, 13);  // orange
    for (const SafetyLevel level :
         {SafetyLevel::safe, SafetyLevel::usuallySafe, SafetyLevel::reviewFirst}) {
      const QColor colour = theme->colour(ui::toneOf(level));
      const QColor badge = Theme::faint(colour);
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

QImage drawn(const QString& name, const QColor& colour, int ratio) {
  constexpr int side = 24;
  QImage image(side * ratio, side * ratio, QImage::Format_ARGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  ui::symbols::paint(painter, name, colour, QRect(0, 0, side, side));
  return image;
}

// The mean difference of two images, 0 to 1.
double difference(const QImage& a, const QImage& b) {
  int sum = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x)
      sum += std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y)));
  }
  return sum / 255.0 / (a.width() * a.height());
}

TEST(Symbols, AreSharpAndInTheColourThatIsAskedFor) {
  const QStringList files = QDir(":/icons").entryList({"*.svg"});
  ASSERT_FALSE(files.isEmpty());
  for (const QString& file : files) {
    const QString name = file.chopped(4);
    SCOPED_TRACE(name.toStdString());
    const QImage fine = drawn(name, light().accent, 2);
    int covered = 0;
    for (int y = 0; y < fine.height(); ++y) {
      for (int x = 0; x < fine.width(); ++x) {
        const QColor pixel = fine.pixelColor(x, y);
        if (pixel.alpha() < 255) continue;
        ++covered;
        ASSERT_TRUE(pixel.rgb() == light().accent.rgb() || name == "BrandMark");
      }
    }
    EXPECT_GT(covered, 20);
    // A fine screen gets the same drawing in the same place, and more of it.
    const QImage scaled = drawn(name, light().accent, 1).scaled(fine.size());
    EXPECT_GT(difference(fine, scaled), 0.001);
    EXPECT_LT(difference(fine, scaled), 0.15);
  }
}

}  // namespace
}  // namespace broomtide
