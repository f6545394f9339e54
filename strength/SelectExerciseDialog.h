#pragma once
// "Select an exercise": the exercises of the grid's muscle group in a list with the full names,
// which the narrow exercise column of the grid cannot show; OK (or a double tap) picks one.

#include <QDialog>
#include <QStringList>

class QListWidget;

class SelectExerciseDialog : public QDialog {
    Q_OBJECT
public:
    // exercises in the order shown; current is selected when it is among them.
    SelectExerciseDialog(const QStringList& exercises, const QString& current, QWidget* parent);

    // The exercise picked (empty when none was selected).
    QString selectedExercise() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QListWidget* m_list = nullptr;
    class QPushButton* m_ok = nullptr;
    class QPushButton* m_cancel = nullptr;
};
