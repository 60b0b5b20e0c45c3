// Paints a drawing as a square picture: paint-icon DRAWING.svg SIDE PICTURE.png. Desktops that read
// no SVG show these. They come from Qt, which the window needs anyway, so that building needs no
// other program and the repository keeps no second version of the drawing.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char** arguments) {
  if (argumentCount != 4) return EXIT_FAILURE;
  QSvgRenderer drawing(QString::fromLocal8Bit(arguments[1]));
  const int side = QByteArray(arguments[2]).toInt();
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  drawing.render(&painter);
  painter.end();
  if (drawing.isValid() && picture.save(QString::fromLocal8Bit(arguments[3]))) return EXIT_SUCCESS;
  std::fprintf(stderr, "paint-icon: %s cannot be painted as %s\n", arguments[1], arguments[3]);
  return EXIT_FAILURE;
}
