#include "shell/pages/CHotkeyView.h"

#include "integrations/hotkeys/HotkeyAssignments.h"
#include "integrations/hotkeys/HotkeyNames.h"
#include "settings/CRegistryKey.h"
#include "shell/hotkeys/HotkeySettings.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

CHotkeyView::CHotkeyView(Services services, QWidget* parent)
    : CPageView(parent), m_services(std::move(services)) {
    auto* form = new QWidget;
    auto* layout = new QFormLayout(form);
    layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    const auto combo = [form] {
        auto* box = new QComboBox(form);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(8);
        return box;
    };
    m_pButton = combo();
    for (int button = 1; button <= HotkeyNames::kButtons; ++button)
        m_pButton->addItem(HotkeyNames::shortPress(button));
    m_pShort = combo();
    m_pDouble = combo();
    m_pLong = combo();
    m_pChordButton = combo();
    m_pChord = combo();
    m_pKeys = new QLabel(form);
    m_pKeys->setWordWrap(true);
    m_pCapture = new QPushButton(QStringLiteral("Taste zuweisen"), form);
    m_pDevice = new QLineEdit(form);
    m_pDevice->setPlaceholderText(QStringLiteral("Name oder /dev/input/by-id/…"));
    m_pDeviceState = new QLabel(form);
    m_pDeviceState->setWordWrap(true);

    layout->addRow(QStringLiteral("Taste"), m_pButton);
    layout->addRow(QStringLiteral("Kurz"), m_pShort);
    layout->addRow(QStringLiteral("2*"), m_pDouble);
    layout->addRow(QStringLiteral("Lang"), m_pLong);
    layout->addRow(QStringLiteral("Mit"), m_pChordButton);
    layout->addRow(QString(), m_pChord);
    layout->addRow(m_pKeys);
    layout->addRow(m_pCapture);
    layout->addRow(QStringLiteral("Gerät"), m_pDevice);
    layout->addRow(m_pDeviceState);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setWidget(form);
    (new QVBoxLayout(this))->addWidget(scroll);

    connect(m_pButton, &QComboBox::currentIndexChanged, this, &CHotkeyView::Load);
    connect(m_pChordButton, &QComboBox::currentIndexChanged, this, [this] {
        if (!m_bLoading) Load();
    });
    const auto writeOnChange = [this](QComboBox* box, std::function<QString()> valueName) {
        connect(box, &QComboBox::currentIndexChanged, this, [this, box, valueName] {
            if (!m_bLoading) WriteAction(box, valueName());
        });
    };
    writeOnChange(m_pShort, [this] { return HotkeyNames::shortPress(Button()); });
    writeOnChange(m_pDouble, [this] { return HotkeyNames::multiPress(2, Button()); });
    writeOnChange(m_pLong, [this] { return HotkeyNames::longPress(Button()); });
    writeOnChange(m_pChord,
                  [this] { return HotkeyNames::chord(Button(), m_pChordButton->currentData().toInt()); });
    connect(m_pCapture, &QPushButton::clicked, this, &CHotkeyView::StartCapture);
    connect(m_pDevice, &QLineEdit::editingFinished, this, [this] {
        CRegistryKey key;
        writeSetting(key, HotkeySettings::kDevice, m_pDevice->text().trimmed());
        m_services.keysChanged();
        Load();
    });
    FillActions();
    Load();
}

void CHotkeyView::showEvent(QShowEvent* event) {
    FillActions(); // user pages may have come or gone
    Load();
    CPageView::showEvent(event);
}

int CHotkeyView::Button() const {
    return m_pButton->currentIndex() + 1;
}

void CHotkeyView::FillActions() {
    QStringList actions = HotkeyNames::fixedActions();
    for (const QString& page : m_services.pageNames())
        actions << HotkeyNames::pageAction(page);
    m_bLoading = true;
    for (QComboBox* box : {m_pShort, m_pDouble, m_pLong, m_pChord}) {
        box->clear();
        box->addItems(actions);
    }
    m_bLoading = false;
}

void CHotkeyView::Load() {
    m_bLoading = true;
    CRegistryKey key;
    const int button = Button();
    const auto show = [&key](QComboBox* box, const QString& valueName) {
        const QString action = HotkeyAssignments::action(key, valueName);
        const int index = action.isEmpty() ? 0 : box->findText(action);
        if (index < 0) box->addItem(action); // a page that is gone still shows what is stored
        box->setCurrentIndex(index < 0 ? box->count() - 1 : index);
    };
    const int chordWith = m_pChordButton->currentData().toInt();
    m_pChordButton->clear();
    for (int second = 1; second <= HotkeyNames::kButtons; ++second)
        if (second != button) m_pChordButton->addItem(HotkeyNames::shortPress(second), second);
    m_pChordButton->setCurrentIndex(std::max(0, m_pChordButton->findData(chordWith)));
    show(m_pShort, HotkeyNames::shortPress(button));
    show(m_pDouble, HotkeyNames::multiPress(2, button));
    show(m_pLong, HotkeyNames::longPress(button));
    show(m_pChord, HotkeyNames::chord(button, m_pChordButton->currentData().toInt()));
    m_pKeys->setText(QStringLiteral("Tastatur: %1   Gerät: Code %2")
                         .arg(readSetting(key, HotkeySettings::kWindowKeys[button - 1]))
                         .arg(readSetting(key, HotkeySettings::kDeviceKeys[button - 1])));
    m_pDevice->setText(readSetting(key, HotkeySettings::kDevice));
    m_pDeviceState->setText(m_services.deviceState());
    m_pCapture->setText(QStringLiteral("Taste zuweisen"));
    m_bLoading = false;
}

void CHotkeyView::WriteAction(QComboBox* box, const QString& valueName) {
    CRegistryKey key;
    key.WriteString(valueName, box->currentText());
}

void CHotkeyView::StartCapture() {
    m_pCapture->setText(QStringLiteral("Taste drücken …"));
    const int button = Button();
    m_services.captureKey([this, button](CHotkeyInput::KeySource source, int code) {
        CRegistryKey key;
        if (source == CHotkeyInput::KeySource::Window)
            writeSetting(key, HotkeySettings::kWindowKeys[button - 1],
                         QKeySequence(code).toString(QKeySequence::PortableText));
        else
            writeSetting(key, HotkeySettings::kDeviceKeys[button - 1], code);
        m_services.keysChanged();
        Load();
    });
}
