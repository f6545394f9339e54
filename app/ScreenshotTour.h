#pragma once
// Writes PNG pictures of the device screen at scale 1 (240 x 320): the start-up box, the release
// notes, every tab, the menu open and the Options dialog. Runs the whole program offscreen on a
// fresh temporary device with the clock fixed, driving it as a user would.

#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>

class KovalinApp;

class ScreenshotTour : public QObject {
    Q_OBJECT
public:
    explicit ScreenshotTour(const QString& directory);

    // 0 when every picture was written.
    int run();
    const QStringList& written() const { return m_written; }

private:
    void onStartupText(const QString& text);
    void answerReleaseNotes();
    void tourPages();
    QImage grabScreen() const;
    void save(const QImage& image, const QString& name);

    QString m_directory;
    KovalinApp* m_app = nullptr;
    QStringList m_written;
    QStringList m_failed;
};
