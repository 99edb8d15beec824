#pragma once

#include "nav/GeoPosition.h"

#include <QDialog>
#include <optional>

class QLineEdit;

// "Calc Goto Pos": from a start ("Breite"/"Länge" "von") either along "Richtung" and "Entf." to the end
// ("Breite"/"Länge" "nach"), or from start and end to direction and distance. "Übernehmen" makes the
// end position the target (the dialog then ends with Accepted and Target() holds it).
class CCalcGotoPosDialog : public QDialog {
    Q_OBJECT
public:
    // Starts from `from` (degrees) when given.
    explicit CCalcGotoPosDialog(std::optional<GeoPosition> from, QWidget* parent = nullptr);
    void CalculateForward();
    void CalculateBackward();
    void Take();
    std::optional<GeoPosition> Target() const { return m_target; }
    QLineEdit* Field(const char* objectName) const;

private:
    QLineEdit* m_pLatFrom;
    QLineEdit* m_pLonFrom;
    QLineEdit* m_pCourse;
    QLineEdit* m_pDistance;
    QLineEdit* m_pLatTo;
    QLineEdit* m_pLonTo;
    std::optional<GeoPosition> m_target;
};
