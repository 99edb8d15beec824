#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class PoiLoader;
class QLabel;
class QListWidget;
class QListWidgetItem;

// The POI page ("POI Konfiguration"): the .ov2 and .asc files of the POI folder ("PoiPath"), each
// switched on or off in the subkey POI, with its icon; a change loads the POIs again, and the status
// line follows the loading ("%d POIs loading...", "%d POIs geladen"). Leads to the nearest-POI page.
class CPOIView : public CPageView {
    Q_OBJECT
public:
    // `showNearest` switches to the nearest-POI page.
    CPOIView(PoiLoader& loader, std::function<void()> showNearest, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
    // Lists the folder's files again with their state in the subkey POI.
    void Refresh();
    QString StatusText() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Switch(QListWidgetItem* item);

    PoiLoader& m_loader;
    QLabel* m_pFolder;
    QListWidget* m_pFiles;
    QLabel* m_pStatus;
    bool m_bFilling = false;
};
