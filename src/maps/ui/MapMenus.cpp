#include "maps/ui/MapMenus.h"

#include "gps/CFendixDoc.h"
#include "maps/ui/CMapOverlay.h"
#include "maps/ui/CMapView.h"
#include "nav/CoordinateText.h"
#include "nav/goto/GoToTarget.h"

#include <QActionGroup>
#include <QColorDialog>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace MapMenus {

namespace {

QAction* addToggle(QMenu* menu, const QString& text, bool on, const std::function<void(bool)>& change) {
    QAction* action = menu->addAction(text);
    action->setCheckable(true);
    action->setChecked(on);
    QObject::connect(action, &QAction::toggled, menu, change);
    return action;
}

// One display setting changed and written at once.
void addSettingToggle(QMenu* menu, CMapView& view, const QString& text, bool MapDisplaySettings::*member) {
    addToggle(menu, text, view.DisplaySettings().*member, [&view, member](bool on) {
        MapDisplaySettings settings = view.DisplaySettings();
        settings.*member = on;
        view.ChangeDisplaySettings(settings);
    });
}

void addColour(QMenu* menu, CMapView& view, const QString& text, Colour MapDisplaySettings::*member) {
    menu->addAction(text, &view, [&view, member, text] {
        const QColor chosen = QColorDialog::getColor(toQColor(view.DisplaySettings().*member), &view, text);
        if (!chosen.isValid()) return;
        MapDisplaySettings settings = view.DisplaySettings();
        settings.*member = fromQColor(chosen);
        view.ChangeDisplaySettings(settings);
    });
}

void addDisplayMenu(QMenu* menu, CMapView& view) {
    addSettingToggle(menu, view, QStringLiteral("Karte in Fahrtrichtung drehen"),
                     &MapDisplaySettings::m_bTurnMap);
    addSettingToggle(menu, view, QStringLiteral("Perspektive"), &MapDisplaySettings::m_bShowPerspective);
    menu->addAction(QStringLiteral("Stärke der Perspektive..."), &view, [&view] {
        bool ok = false;
        const int value = QInputDialog::getInt(&view, QStringLiteral("Perspektive"),
                                               QStringLiteral("Abstand bis zum Horizont (Pixel)"),
                                               view.DisplaySettings().m_nPerspective, 50, 5000, 50, &ok);
        if (!ok) return;
        MapDisplaySettings settings = view.DisplaySettings();
        settings.m_nPerspective = value;
        view.ChangeDisplaySettings(settings);
    });
    addSettingToggle(menu, view, QStringLiteral("Maßstab anzeigen"), &MapDisplaySettings::m_bMapBar);
    QMenu* types = menu->addMenu(QStringLiteral("Maßstabsart"));
    auto* group = new QActionGroup(types);
    const QString names[] = {QStringLiteral("Balken"), QStringLiteral("Balken und Verhältnis"),
                             QStringLiteral("Verhältnis")};
    for (int type = 0; type < 3; ++type) {
        QAction* action = types->addAction(names[type]);
        action->setCheckable(true);
        action->setChecked(view.DisplaySettings().m_nScaleType == type);
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, &view, [&view, type] {
            MapDisplaySettings settings = view.DisplaySettings();
            settings.m_nScaleType = type;
            view.ChangeDisplaySettings(settings);
        });
    }
    addSettingToggle(menu, view, QStringLiteral("Bildlaufleisten"), &MapDisplaySettings::m_bShowScrollbar);
    menu->addSeparator();
    addColour(menu, view, QStringLiteral("Farbe der Messung..."), &MapDisplaySettings::m_colMeasurement);
    addColour(menu, view, QStringLiteral("Farbe der Grafik..."), &MapDisplaySettings::m_colGraph);
    addSettingToggle(menu, view, QStringLiteral("Farbige Grafik"), &MapDisplaySettings::m_bColoredGraph);
}

void addOverlayMenu(QMenu* menu, CMapView& view) {
    for (size_t i = 0; i < view.OverlayCount(); ++i)
        addToggle(menu, view.Overlay(i).Title(), view.IsOverlayShown(i),
                  [&view, i](bool on) { view.SetOverlayShown(i, on); });
    menu->addSeparator();
    for (size_t i = 0; i < view.OverlayCount(); ++i)
        view.Overlay(i).AddCommands(*menu);
}

// "Punkt eingeben": latitude and longitude typed in any notation.
bool askPosition(QWidget* parent, int slot, double& lon, double& lat) {
    QDialog dialog(parent);
    dialog.setWindowTitle(QStringLiteral("Kalibrierung %1. Punkt").arg(slot + 1));
    auto* form = new QFormLayout(&dialog);
    auto* latitude = new QLineEdit(&dialog);
    auto* longitude = new QLineEdit(&dialog);
    form->addRow(new QLabel(QStringLiteral("z. B. N 47°49.521 oder 47.8253"), &dialog));
    form->addRow(QStringLiteral("Breite"), latitude);
    form->addRow(QStringLiteral("Länge"), longitude);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    form->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return dialog.exec() == QDialog::Accepted && ParseCoordinate(latitude->text(), lat) &&
           ParseCoordinate(longitude->text(), lon);
}

void addPointMenu(QMenu* menu, CMapView& view, int slot, std::optional<Point> pixel) {
    QMenu* point = menu->addMenu(QStringLiteral("Kalibrierung %1. Punkt").arg(slot + 1));
    const bool onImage = pixel.has_value();
    const Point at = pixel.value_or(Point{});
    point
        ->addAction(QStringLiteral("Übernehme aktuelle Position"), &view,
                    [&view, slot, at] {
                        const GpsFix& fix = view.Document().Fix();
                        view.SetCalibrationPoint(slot, at, fix.m_dPosLong, fix.m_dPosLat);
                    })
        ->setEnabled(onImage);
    double targetLon = 0, targetLat = 0;
    const bool hasTarget = view.GoToTarget() && view.GoToTarget()->GetTarget(targetLon, targetLat);
    point
        ->addAction(QStringLiteral("Übernehme Position der GoTo Seite"), &view,
                    [&view, slot, at, targetLon, targetLat] {
                        view.SetCalibrationPoint(slot, at, targetLon, targetLat);
                    })
        ->setEnabled(onImage && hasTarget);
    const std::optional<GeoPosition> click = view.NavLastClick();
    point
        ->addAction(QStringLiteral("Position vom letzen MN Klick"), &view,
                    [&view, slot, at, click] {
                        if (click) view.SetCalibrationPoint(slot, at, click->m_dPosLong, click->m_dPosLat);
                    })
        ->setEnabled(onImage && click.has_value());
    point
        ->addAction(QStringLiteral("Nächster Klick auf Route"), &view,
                    [&view, slot, at] { view.PickPositionOnNextTap(slot, at); })
        ->setEnabled(onImage);
    point
        ->addAction(QStringLiteral("Punkt eingeben..."), &view,
                    [&view, slot, at] {
                        double lon = 0, lat = 0;
                        if (askPosition(&view, slot, lon, lat)) view.SetCalibrationPoint(slot, at, lon, lat);
                    })
        ->setEnabled(onImage);
    point->addSeparator();
    const MapCalibration* map = view.Catalogue().CurrentMap();
    point
        ->addAction(QStringLiteral("Lösche Kalibrierungspunkt"), &view,
                    [&view, slot] { view.DeleteCalibrationPoint(slot); })
        ->setEnabled(map && slot < map->PointCount());
}

} // namespace

QMenu* PageMenu(CMapView& view) {
    auto* menu = new QMenu(&view);
    CMapCatalogue& catalogue = view.Catalogue();
    menu->addAction(QStringLiteral("Karte öffnen..."), &view, [&view] {
        const QString path =
            QFileDialog::getOpenFileName(&view, QStringLiteral("Karte öffnen"), view.MapFolder(),
                                         QStringLiteral("Karten (*.jpg *.bmp *.gif *.png)"));
        if (!path.isEmpty()) view.OpenMapFile(path);
    });
    addToggle(menu, QStringLiteral("Karte anzeigen"), catalogue.ShowMap(),
              [&view](bool on) { view.SetShowMap(on); });
    addToggle(menu, QStringLiteral("Automatisch neue Karte laden"), catalogue.AutoLoadNext(),
              [&view](bool) { view.ToggleAutoLoadNext(); });
    addToggle(menu, QStringLiteral("Kartenübersicht"), view.ShowsOverview(),
              [&view](bool on) { view.SetShowOverview(on); });
    menu->addAction(QStringLiteral("Karteninformationen"), &view, [&catalogue] { catalogue.ShowMapInfo(); });
    addToggle(menu, QStringLiteral("Verfolge aktuelle Position"), view.IsFollowing(),
              [&view](bool on) { view.SetFollowing(on); });
    addDisplayMenu(menu->addMenu(QStringLiteral("Darstellung")), view);
    if (view.OverlayCount() > 0) addOverlayMenu(menu->addMenu(QStringLiteral("Einblendungen")), view);
    return menu;
}

QMenu* CalibrationMenu(CMapView& view, QPointF at) {
    auto* menu = new QMenu(&view);
    const std::optional<Point> pixel = view.MapPixelAt(at);
    for (int slot = 0; slot < MapCalibration::kMaxPoints; ++slot)
        addPointMenu(menu, view, slot, pixel);
    menu->addSeparator();
    addToggle(menu, QStringLiteral("Zeichne Kalibrierungspunkte"), view.DrawsCalibrationPoints(),
              [&view](bool on) { view.SetDrawCalibrationPoints(on); });
    menu->addAction(QStringLiteral("Kalibrierung Speichern"), &view, [&view] { view.SaveCalibration(); });
    menu->addAction(QStringLiteral("Autokalibrierung"), &view, [&view] { view.AutoCalibrate(); });
    return menu;
}

} // namespace MapMenus
