#pragma once
// The heading a page draws at its top: its tab image and its name.

#include <QString>

class QPainter;
class QWidget;

class PageHeading {
public:
    static constexpr int kHeight = 24;

    static void paint(QPainter& painter, const QWidget& page, int bitmapId, const QString& title);
};
