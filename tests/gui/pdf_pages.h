// The pages of a PDF file as pictures.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <vector>

namespace torvale {

inline constexpr int kDotsPerInch = 100;

inline bool CanRenderPdf() {
  return !QStandardPaths::findExecutable("pdftoppm").isEmpty();
}

inline std::vector<QImage> PagesOf(const QString& pdf) {
  const QTemporaryDir pictures;
  QProcess renderer;
  renderer.start("pdftoppm", {"-r", QString::number(kDotsPerInch), "-png", pdf, pictures.filePath("page")});
  EXPECT_TRUE(renderer.waitForFinished());
  EXPECT_EQ(renderer.exitCode(), 0) << renderer.readAllStandardError().toStdString();
  std::vector<QImage> pages;
  for (const QString& name : QDir(pictures.path()).entryList({"page-*.png"}, QDir::Files, QDir::Name)) {
    pages.emplace_back(pictures.filePath(name));
  }
  return pages;
}

// Dark dots of a picture within a rectangle of it.
inline int DarkDots(const QImage& picture, const QRect& within) {
  int dark = 0;
  const QRect seen = within & picture.rect();
  for (int y = seen.top(); y <= seen.bottom(); ++y) {
    for (int x = seen.left(); x <= seen.right(); ++x) dark += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
  }
  return dark;
}

}  // namespace torvale
