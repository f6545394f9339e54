#pragma once
// The time control of the pages, in one of the platform's two pictures: "h:mm tt" (1:30 PM) for a
// time of day, "HH:mm:ss" (01:30:00) for a span. Typed field by field (see FieldEdit): a tap
// selects the field under the stylus and digits replace it; the new time takes effect once, on
// Enter or on leaving the control. The control keeps the date it was given with the time.

#include "FieldEdit.h"

#include <QDateTime>

class TimeControl : public FieldEdit {
    Q_OBJECT
public:
    enum class Picture { TimeOfDay, Span };

    TimeControl(Picture picture, QWidget* parent);

    QDateTime dateTime() const { return m_value; }
    QTime time() const { return m_value.time(); }
    // Shows value; nothing is emitted.
    void setDateTime(const QDateTime& value);
    void setTime(const QTime& time);

signals:
    // A new time took effect (typed and finished).
    void timeChanged(const QDateTime& value);

protected:
    bool accept(std::vector<int>& draft) override;

private:
    std::vector<int> fieldsOf(const QTime& time) const;

    Picture m_picture;
    QDateTime m_value;
};
