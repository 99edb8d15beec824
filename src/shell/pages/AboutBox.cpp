#include "shell/pages/AboutBox.h"

#include "platform/DeviceRoot.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

void showAboutBox(QWidget* parent) {
    const DeviceRoot& root = DeviceRoot::current();
    QDialog box(parent);
    box.setWindowTitle(QStringLiteral("Info über Tarvik"));
    auto* text = new QLabel(
        QStringLiteral("<h2>Tarvik %1</h2><p>GPS-Begleiter für Auto, Rad und Wanderung.</p>"
                       "<p><b>Geräteordner</b><br>%2</p><p><b>Einstellungen</b><br>%3</p>"
                       "<p><b>Mitgelieferte Daten</b><br>Demo-Fahrt, Demo-POIs, Geschwindigkeits- und "
                       "Meldungstöne: von Tarvik selbst erzeugt, keine fremden Daten.</p>"
                       "<p><b>Bibliotheken</b><br>Qt 6 (LGPL 3), SQLite (gemeinfrei), shapelib (MIT).</p>")
            .arg(QStringLiteral(TARVIK_VERSION), root.hostFolder().toHtmlEscaped(),
                 root.registryFile().toHtmlEscaped()));
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* scroll = new QScrollArea(&box);
    scroll->setWidget(text);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &box);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    auto* layout = new QVBoxLayout(&box);
    layout->addWidget(scroll);
    layout->addWidget(buttons);
    if (parent) box.resize(parent->size() * 0.9);
    box.exec();
}
