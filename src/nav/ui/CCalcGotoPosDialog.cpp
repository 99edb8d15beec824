#include "nav/ui/CCalcGotoPosDialog.h"

#include "nav/CoordinateText.h"
#include "nav/goto/CalcGotoPos.h"
#include "nav/goto/TypedTarget.h"
#include "settings/ValueText.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QLineEdit* field(QWidget* parent, const char* name) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    return edit;
}

} // namespace

CCalcGotoPosDialog::CCalcGotoPosDialog(std::optional<GeoPosition> from, QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Calc Goto Pos"));
    auto* grid = new QGridLayout(this);
    m_pLatFrom = field(this, "latFrom");
    m_pLonFrom = field(this, "lonFrom");
    m_pCourse = field(this, "course");
    m_pDistance = field(this, "distance");
    m_pLatTo = field(this, "latTo");
    m_pLonTo = field(this, "lonTo");
    const std::pair<const char*, QLineEdit*> rows[] = {
        {"Breite von", m_pLatFrom}, {"Länge von", m_pLonFrom}, {"Richtung", m_pCourse},
        {"Entf.", m_pDistance},     {"Breite nach", m_pLatTo}, {"Länge nach", m_pLonTo},
    };
    int row = 0;
    for (const auto& [label, edit] : rows) {
        grid->addWidget(new QLabel(QString::fromUtf8(label), this), row, 0);
        grid->addWidget(edit, row++, 1, 1, 2);
    }
    auto* forward = new QPushButton(QStringLiteral("Ziel ▼"), this);
    auto* backward = new QPushButton(QStringLiteral("Richtung ▲"), this);
    auto* take = new QPushButton(QStringLiteral("Übernehmen"), this);
    grid->addWidget(forward, row, 0);
    grid->addWidget(backward, row, 1);
    grid->addWidget(take, row, 2);
    connect(forward, &QPushButton::clicked, this, &CCalcGotoPosDialog::CalculateForward);
    connect(backward, &QPushButton::clicked, this, &CCalcGotoPosDialog::CalculateBackward);
    connect(take, &QPushButton::clicked, this, &CCalcGotoPosDialog::Take);
    if (from) {
        const PosFormat format = DegreeNotation(readPosFormat());
        m_pLatFrom->setText(FormatCoordinate(from->m_dPosLat, format, true));
        m_pLonFrom->setText(FormatCoordinate(from->m_dPosLong, format, false));
    }
}

void CCalcGotoPosDialog::CalculateForward() {
    const auto result =
        CalcForward(m_pLatFrom->text(), m_pLonFrom->text(), ValueText::wcstod(m_pCourse->text()),
                    ValueText::wcstod(m_pDistance->text()), DegreeNotation(readPosFormat()));
    if (!result) return;
    m_pLatTo->setText(result->m_strLat);
    m_pLonTo->setText(result->m_strLon);
}

void CCalcGotoPosDialog::CalculateBackward() {
    const auto result =
        CalcBackward(m_pLatFrom->text(), m_pLonFrom->text(), m_pLatTo->text(), m_pLonTo->text());
    if (!result) return;
    m_pDistance->setText(result->m_strDistance);
    m_pCourse->setText(result->m_strCourse);
}

void CCalcGotoPosDialog::Take() {
    GeoPosition to;
    if (!ParseCoordinate(m_pLatTo->text().trimmed(), to.m_dPosLat) ||
        !ParseCoordinate(m_pLonTo->text().trimmed(), to.m_dPosLong))
        return;
    m_target = to;
    accept();
}

QLineEdit* CCalcGotoPosDialog::Field(const char* objectName) const {
    return findChild<QLineEdit*>(QString::fromLatin1(objectName));
}
