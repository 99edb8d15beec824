#include "integrations/ui/CMNAddOnPage.h"

#include "integrations/navbridge/NavBridgeSettings.h"
#include "settings/CRegistryKey.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr int kMaxRadius = 100000;     // metres
constexpr int kMaxAnnouncement = 3600; // seconds
constexpr int kMaxTmcSearch = 24 * 60; // minutes
constexpr int kMaxCoordinate = 4096;   // pixels
} // namespace

QString CMNAddOnPage::InfoWarning() {
    return QStringLiteral("Diese Funktion ist hauptsächlich für ältere MobileNavigator-Versionen gedacht. "
                          "Mit aktuellen Navigationsprogrammen kann sie starkes Flackern verursachen. "
                          "Besser sind die Informationsfenster der Datei \"MNInfo.ini\".");
}

CMNAddOnPage::CMNAddOnPage(std::function<void()> infoBoxChanged, QWidget* parent)
    : CPageView(parent), m_infoBoxChanged(std::move(infoBoxChanged)) {
    auto* form = new QWidget;
    auto* layout = new QFormLayout(form);
    layout->setRowWrapPolicy(QFormLayout::WrapAllRows);
    const auto check = [form](const QString& text) { return new QCheckBox(text, form); };
    const auto spin = [form](int minimum, int maximum, const QString& suffix) {
        auto* box = new QSpinBox(form);
        box->setRange(minimum, maximum);
        box->setSuffix(suffix);
        return box;
    };
    m_pProgram = new QLineEdit(form);
    auto* browse = new QPushButton(QStringLiteral("..."), form);
    auto* programRow = new QHBoxLayout;
    programRow->addWidget(m_pProgram);
    programRow->addWidget(browse);
    m_pAutoStartMN = check(QStringLiteral("Navi mitstarten"));
    m_pInfo = check(QStringLiteral("Infobox über dem Navi"));
    m_pInfoText = new QLineEdit(form);
    auto* rectRow = new QGridLayout; // two by two, so that it fits a narrow screen
    for (int i = 0; i < 4; ++i) {
        m_pRect[i] = spin(-kMaxCoordinate, kMaxCoordinate, QString());
        rectRow->addWidget(m_pRect[i], i / 2, i % 2);
    }
    m_pColorBG = new QPushButton(QStringLiteral("Hintergrund"), form);
    m_pColorText = new QPushButton(QStringLiteral("Text"), form);
    auto* colourRow = new QHBoxLayout;
    colourRow->addWidget(m_pColorBG);
    colourRow->addWidget(m_pColorText);
    m_pNextWP = check(QStringLiteral("Nächster Routenpunkt"));
    m_pNextWPRadius = spin(0, kMaxRadius, QStringLiteral(" m"));
    m_pAnnouncement = check(QStringLiteral("Ansage"));
    m_pZoomOut = check(QStringLiteral("Herauszoomen"));
    m_pAutoAnnouncement = spin(0, kMaxAnnouncement, QStringLiteral(" s"));
    m_pAutoTmc = spin(0, kMaxTmcSearch, QStringLiteral(" min"));

    layout->addRow(QStringLiteral("Programm"), programRow);
    layout->addRow(m_pAutoStartMN);
    layout->addRow(m_pInfo);
    layout->addRow(QStringLiteral("Text"), m_pInfoText);
    layout->addRow(QStringLiteral("Lage"), rectRow);
    layout->addRow(QStringLiteral("Farben"), colourRow);
    layout->addRow(m_pNextWP);
    layout->addRow(QStringLiteral("Radius"), m_pNextWPRadius);
    layout->addRow(m_pAnnouncement);
    layout->addRow(m_pZoomOut);
    layout->addRow(QStringLiteral("Ansage alle"), m_pAutoAnnouncement);
    layout->addRow(QStringLiteral("TMC-Suche alle"), m_pAutoTmc);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(form);
    (new QVBoxLayout(this))->addWidget(scroll);
    Load();

    connect(browse, &QPushButton::clicked, this, &CMNAddOnPage::BrowseProgram);
    connect(m_pProgram, &QLineEdit::editingFinished, this, [this] {
        CRegistryKey key;
        writeSetting(key, NavBridgeSettings::kProgram, m_pProgram->text());
    });
    const auto writeFlag = [this](QCheckBox* box, const Setting<bool>& setting) {
        connect(box, &QCheckBox::toggled, this, [this, pSetting = &setting](bool on) {
            CRegistryKey key;
            if (!m_bLoading) writeSetting(key, *pSetting, on);
        });
    };
    const auto writeNumber = [this](QSpinBox* box, const Setting<int32_t>& setting) {
        connect(box, &QSpinBox::valueChanged, this, [this, pSetting = &setting](int value) {
            CRegistryKey key;
            if (!m_bLoading) writeSetting(key, *pSetting, value);
        });
    };
    writeFlag(m_pAutoStartMN, NavBridgeSettings::kAutoStartMN);
    writeFlag(m_pNextWP, NavBridgeSettings::kNextWaypoint);
    writeFlag(m_pAnnouncement, NavBridgeSettings::kAnnouncement);
    writeFlag(m_pZoomOut, NavBridgeSettings::kZoomOut);
    writeNumber(m_pNextWPRadius, NavBridgeSettings::kNextWaypointRadius);
    writeNumber(m_pAutoAnnouncement, NavBridgeSettings::kAutoAnnouncement);
    writeNumber(m_pAutoTmc, NavBridgeSettings::kAutoTmc);
    connect(m_pInfo, &QCheckBox::toggled, this, [this](bool on) {
        if (m_bLoading) return;
        if (on) {
            auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("MN AddOns"), InfoWarning(),
                                        QMessageBox::Ok, this);
            box->setAttribute(Qt::WA_DeleteOnClose);
            box->open();
        }
        WriteInfoBox();
    });
    connect(m_pInfoText, &QLineEdit::editingFinished, this, &CMNAddOnPage::WriteInfoBox);
    for (QSpinBox* box : m_pRect)
        connect(box, &QSpinBox::valueChanged, this, &CMNAddOnPage::WriteInfoBox);
    connect(m_pColorBG, &QPushButton::clicked, this,
            [this] { ChooseColour(m_pColorBG, NavBridgeSettings::kInfoColorBG); });
    connect(m_pColorText, &QPushButton::clicked, this,
            [this] { ChooseColour(m_pColorText, NavBridgeSettings::kInfoColorText); });
}

void CMNAddOnPage::Load() {
    m_bLoading = true;
    CRegistryKey key;
    m_pProgram->setText(readSetting(key, NavBridgeSettings::kProgram));
    m_pAutoStartMN->setChecked(readSetting(key, NavBridgeSettings::kAutoStartMN));
    m_pInfo->setChecked(readSetting(key, NavBridgeSettings::kInfo));
    m_pInfoText->setText(readSetting(key, NavBridgeSettings::kInfoText));
    Rect rect;
    key.ReadRect(QString::fromLatin1(NavBridgeSettings::kInfoRect), rect);
    const int32_t sides[4] = {rect.left, rect.top, rect.right, rect.bottom};
    for (int i = 0; i < 4; ++i)
        m_pRect[i]->setValue(sides[i]);
    ShowColour(m_pColorBG, NavBridgeSettings::kInfoColorBG);
    ShowColour(m_pColorText, NavBridgeSettings::kInfoColorText);
    m_pNextWP->setChecked(readSetting(key, NavBridgeSettings::kNextWaypoint));
    m_pNextWPRadius->setValue(readSetting(key, NavBridgeSettings::kNextWaypointRadius));
    m_pAnnouncement->setChecked(readSetting(key, NavBridgeSettings::kAnnouncement));
    m_pZoomOut->setChecked(readSetting(key, NavBridgeSettings::kZoomOut));
    m_pAutoAnnouncement->setValue(readSetting(key, NavBridgeSettings::kAutoAnnouncement));
    m_pAutoTmc->setValue(readSetting(key, NavBridgeSettings::kAutoTmc));
    m_bLoading = false;
}

void CMNAddOnPage::WriteInfoBox() {
    if (m_bLoading) return;
    CRegistryKey key;
    writeSetting(key, NavBridgeSettings::kInfo, m_pInfo->isChecked());
    writeSetting(key, NavBridgeSettings::kInfoText, m_pInfoText->text());
    key.WriteRect(QString::fromLatin1(NavBridgeSettings::kInfoRect),
                  {m_pRect[0]->value(), m_pRect[1]->value(), m_pRect[2]->value(), m_pRect[3]->value()});
    if (m_infoBoxChanged) m_infoBoxChanged();
}

void CMNAddOnPage::BrowseProgram() {
    const QString file =
        QFileDialog::getOpenFileName(this, QStringLiteral("Navigationsprogramm"), m_pProgram->text(),
                                     QStringLiteral("Programme (*.exe);;Alle Dateien (*)"));
    if (file.isEmpty()) return;
    m_pProgram->setText(file);
    CRegistryKey key;
    writeSetting(key, NavBridgeSettings::kProgram, file);
}

void CMNAddOnPage::ChooseColour(QPushButton* button, const char* valueName) {
    CRegistryKey key;
    Colour stored = 0;
    key.ReadColour(QString::fromLatin1(valueName), stored);
    const QColor chosen =
        QColorDialog::getColor(QColor(stored & 0xFF, (stored >> 8) & 0xFF, (stored >> 16) & 0xFF), this);
    if (!chosen.isValid()) return;
    key.WriteColour(QString::fromLatin1(valueName), makeColour(chosen.red(), chosen.green(), chosen.blue()));
    ShowColour(button, valueName);
    if (m_infoBoxChanged) m_infoBoxChanged();
}

void CMNAddOnPage::ShowColour(QPushButton* button, const char* valueName) {
    CRegistryKey key;
    Colour colour = 0;
    if (!key.ReadColour(QString::fromLatin1(valueName), colour)) {
        button->setStyleSheet(QString());
        return;
    }
    button->setStyleSheet(QStringLiteral("background-color: rgb(%1,%2,%3)")
                              .arg(colour & 0xFF)
                              .arg((colour >> 8) & 0xFF)
                              .arg((colour >> 16) & 0xFF));
}
