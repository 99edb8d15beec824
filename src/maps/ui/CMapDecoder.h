#pragma once

#include <QImage>
#include <QObject>
#include <QSet>
#include <QString>
#include <QThreadPool>
#include <atomic>
#include <map>
#include <optional>

// Decodes map images on a worker thread, one at a time, so that the map view's window never freezes
// over a large picture. The decoded image is kept until the view takes it. A large JPEG is first
// decoded at an eighth of its size, which takes a fraction of the time, and handed out as a preview.
class CMapDecoder : public QObject {
    Q_OBJECT
public:
    // Pictures with more pixels than this get a preview first.
    static constexpr int64_t kPreviewPixels = 4'000'000;
    static constexpr int kPreviewDivisor = 8;

    explicit CMapDecoder(QObject* parent = nullptr);
    ~CMapDecoder() override; // waits for the decode under way

    // The decoded image (16 bits a pixel), once it is there: a null image when the file could not
    // be decoded, which is answered again at once until Forget. Nothing while it decodes; the first
    // call starts the decode.
    std::optional<QImage> Take(const QString& path);
    // Bytes of decoded images not taken yet: memory the view gets back by taking them.
    int64_t HeldBytes() const;
    // Drops images not taken, remembered failures and decodes not started yet.
    void Forget();

Q_SIGNALS:
    void decoded(const QString& path);
    void preview(const QString& path, const QImage& image);

private:
    void Finished(const QString& path, const QImage& image, unsigned generation);

    QThreadPool m_pool;
    std::atomic<unsigned> m_nGeneration{0};
    QSet<QString> m_requested;
    QSet<QString> m_failed;
    std::map<QString, QImage> m_done;
};
