#pragma once

#include <QString>
#include <functional>

class LineAssembler;
class StopEvent;

// Where a reader thread delivers. Implemented on the UI thread's side (GpsSourceController).
class SentenceSink {
public:
    virtual ~SentenceSink() = default;
    // One finished sentence with its line end. Called on the reader thread; returns only when the
    // UI thread has handled the sentence, so the line may live in the reader's buffer.
    virtual void handOver(const char* line, int length) = 0;
    // A device or connection failure, for the main window's message display.
    virtual void reportFailure(const QString& text) = 0;
};

// The body of one reader thread: reads a source until the stop event is set, the source ends or
// it fails. Every reader logs "->Start <name>" and one of its leave or end lines.
class SentenceReader {
public:
    virtual ~SentenceReader() = default;
    virtual void run(const StopEvent& stop, SentenceSink& sink) = 0;
    // Writes to the device being read (called from the UI thread while run() goes on); false when the
    // reader has no device open for writing.
    virtual bool writeToDevice(const QByteArray& /*bytes*/) { return false; }
};

// Up to `capacity` bytes from a device: 0 when nothing came within its read time-out, -1 on a
// failure with the reason in `error`.
using StreamRead = std::function<int(char* buffer, int capacity, QString& error)>;

// The loop shared by the serial and network readers: 256-byte reads; after an empty read, up to
// 100 ms on the stop event; after a read with data, a look at the stop event without waiting.
// Returns an empty text when stopped, else the reason the stream failed.
QString pumpStream(const StreamRead& read, LineAssembler& lines, const StopEvent& stop, SentenceSink& sink);
