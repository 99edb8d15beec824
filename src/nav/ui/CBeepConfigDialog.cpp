#include "nav/ui/CBeepConfigDialog.h"

#include "nav/goto/GoToSettings.h"
#include "settings/CRegistryKey.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSlider>
#include <QSpinBox>

CBeepConfigDialog::CBeepConfigDialog(bool bBeep, int volume, int repeat, QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("GoTo Beep Konfiguration"));
    auto* form = new QFormLayout(this);
    m_pBeep = new QCheckBox(QStringLiteral("Beep bei Annäherung"), this);
    m_pBeep->setChecked(bBeep);
    m_pVolume = new QSlider(Qt::Horizontal, this);
    m_pVolume->setRange(0, 65535);
    m_pVolume->setPageStep(4096);
    m_pVolume->setValue(volume);
    m_pRepeat = new QSpinBox(this);
    m_pRepeat->setRange(1, 255);
    m_pRepeat->setValue(std::max(1, repeat));
    form->addRow(m_pBeep);
    form->addRow(QStringLiteral("Lautstärke"), m_pVolume);
    form->addRow(QStringLiteral("Jede n-te Position"), m_pRepeat);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

bool CBeepConfigDialog::Beep() const {
    return m_pBeep->isChecked();
}

int CBeepConfigDialog::Volume() const {
    return m_pVolume->value();
}

int CBeepConfigDialog::Repeat() const {
    return m_pRepeat->value();
}

void CBeepConfigDialog::Store() const {
    CRegistryKey key;
    writeSetting(key, GoToSettings::kBeep, Beep());
    writeSetting(key, GoToSettings::kBeepVolume, Volume());
    writeSetting(key, GoToSettings::kBeepRepeat, static_cast<uint8_t>(Repeat()));
}
