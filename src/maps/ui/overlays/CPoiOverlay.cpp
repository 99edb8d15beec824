#include "maps/ui/overlays/CPoiOverlay.h"

#include "maps/ui/MapDisplaySettings.h"
#include "maps/ui/MapViewport.h"
#include "maps/ui/overlays/PolylinePainting.h"
#include "maps/ui/overlays/ScreenProjection.h"
#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiName.h"
#include "nav/poi/PoiSettings.h"

#include <QPainter>
#include <algorithm>

namespace {

struct Placed {
    const PoiFile* pFile;
    const PoiEntry* pEntry;
    QPointF at;
};

// What the worker draws: copies only.
struct Mark {
    QImage icon; // null: a dot
    QPointF at;
    QString strName;
};

} // namespace

CPoiOverlay::CPoiOverlay(const PoiLoader& pois, const MapDisplaySettings& settings)
    : m_pois(pois), m_settings(settings) {
    ReadSettings();
}

void CPoiOverlay::ReadSettings() {
    CRegistryKey key;
    m_bHideByDiag = readSetting(key, PoiSettings::kHidePOIByDiag);
    m_bSmallFont = readSetting(key, PoiSettings::kSmallFont);
}

CMapOverlay::Drawing CPoiOverlay::Prepare(const MapViewport& viewport) {
    if (m_pois.isLoading()) {
        m_names.clear();
        return {};
    }
    if (m_bHideByDiag && (m_settings.m_bTurnMap || m_settings.m_bShowPerspective)) return {};
    const QRectF box = viewport.VisibleGeoBox();
    if (box.isEmpty()) return {};
    const ScreenProjection projection(viewport);
    const QRectF window(QPointF(0, 0), viewport.Size());
    // One icon a cell of the icons' size: the first point of a cell takes it.
    int edge = kDotEdge;
    for (const PoiFile* file : m_pois.pois().enabledFiles())
        if (!file->m_icon.isNull()) edge = std::max({edge, file->m_icon.width(), file->m_icon.height()});
    // A cell of twice the icon's edge: the icons keep some ground between them.
    const int cellEdge = std::max(2 * edge, kMinCell);
    const int columns = int(window.width()) / cellEdge + 1, rows = int(window.height()) / cellEdge + 1;
    std::vector<bool> taken(size_t(columns * rows), false);
    std::vector<Placed> placed;
    for (const PoiFile* file : m_pois.pois().enabledFiles()) {
        const auto& entries = file->m_entries;
        auto it = std::lower_bound(entries.begin(), entries.end(), box.left(),
                                   [](const PoiEntry& e, double lon) { return e.m_dLon < lon; });
        for (; it != entries.end() && it->m_dLon <= box.right(); ++it) {
            if (it->m_dLat < box.top() || it->m_dLat > box.bottom()) continue;
            const auto at = projection.Map(QPointF(it->m_dLon, it->m_dLat));
            if (!at || !window.contains(*at)) continue;
            const size_t cell = size_t(int(at->y()) / cellEdge * columns + int(at->x()) / cellEdge);
            if (taken[cell]) continue;
            taken[cell] = true;
            placed.push_back({file, &*it, *at});
        }
    }
    std::vector<Mark> marks;
    marks.reserve(placed.size());
    const bool named = int(placed.size()) <= kMaxNamed;
    for (const Placed& p : placed)
        marks.push_back({p.pFile->m_icon, p.at, named ? Name(*p.pFile, *p.pEntry) : QString()});
    return [marks = std::move(marks), edge, small = m_bSmallFont](QPainter& painter) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        for (const Mark& mark : marks) {
            if (!mark.icon.isNull()) {
                painter.drawImage(mark.at - QPointF(mark.icon.width() / 2.0, mark.icon.height() / 2.0),
                                  mark.icon);
            } else {
                painter.setPen(QPen(Qt::white, 1.5));
                painter.setBrush(QColor::fromRgba(kDotColour));
                painter.drawEllipse(mark.at, kDotEdge / 2.0, kDotEdge / 2.0);
            }
        }
        QFont font = painter.font();
        font.setPixelSize(small ? 9 : 12);
        painter.setFont(font);
        for (const Mark& mark : marks)
            if (!mark.strName.isEmpty())
                PolylinePainting::DrawLabel(painter, mark.at + QPointF(edge / 2.0 + 2, -edge / 2.0),
                                            mark.strName, QColor(0, 0, 0));
        painter.restore();
    };
}

QString CPoiOverlay::Name(const PoiFile& file, const PoiEntry& entry) {
    if (entry.m_nNameOffset == 0) return QString();
    const QString key = file.path() + '#' + QString::number(entry.m_nNameOffset);
    auto name = m_names.find(key);
    if (name == m_names.end()) {
        // An .asc name keeps its quotes in the file; on the map they are only noise.
        QString text = PoiNameText(ReadPoiName(file, entry)).trimmed();
        if (text.size() >= 2 && text.startsWith('"') && text.endsWith('"'))
            text = text.mid(1, text.size() - 2);
        name = m_names.insert(key, text);
    }
    return *name;
}
