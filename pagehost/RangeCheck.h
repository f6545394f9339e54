#pragma once
// The range checks of the platform's dialog data exchange: text taken from an edit is parsed as an
// integer or a number and checked against a range, and a refusal carries the platform's own message
// ("Please enter an integer.", "Please enter a number between 0 and 999.").

#include <QString>

#include <optional>

class RangeCheck {
public:
    enum class Kind { Integer, Number };

    struct Result {
        std::optional<double> value; // set when the text was accepted
        QString message;             // the refusal, when it was not
    };

    // Parses text (blanks around it allowed; plain notation only: "-5", "102.25", never "1e3")
    // and checks minimum <= value <= maximum.
    static Result check(Kind kind, const QString& text, double minimum, double maximum);
    // "Please enter an integer between %1 and %2." or its number form, the bounds written in the
    // shortest form ("%g": 0, 99, 102.4, 999.9).
    static QString rangeMessage(Kind kind, double minimum, double maximum);
    static QString bound(double value);
};
