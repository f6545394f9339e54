#pragma once
// Ends the application as soon as the widget named objectName has been painted the first time:
// how start-up is measured, from process start to the Today page on the screen.

#include <QObject>
#include <QString>

class QuitOnFirstPaint : public QObject {
    Q_OBJECT
public:
    // Watches every widget of the application for a paint of objectName.
    explicit QuitOnFirstPaint(const QString& objectName, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_objectName;
    bool m_seen = false;
};
