#pragma once

#include "model/Geometry.h"
#include "platform/Scope.h"
#include "preferences/Preferences.h"
#include "saving/SaveSettings.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <stop_token>
#include <vector>

namespace Kovrel {

// Says how many bytes a crop would take as a file at sizes that are offered: each is resampled, reduced and encoded as
// a save would do it, in the background. Main thread.
class CropSizeEstimator {
public:
    struct Context {
        QImage source;          // the capture
        QImage pixels;          // what the crop is cut from
        double pixelsScale = 1; // pixels to a point of the canvas
        Rect region;            // the crop, in points of the canvas
        Size canvasSize;

        // The same images, not images that look the same.
        bool operator==(const Context& other) const;
    };

    // Pixels.
    struct SizeKey {
        int width = 0;
        int height = 0;
        auto operator<=>(const SizeKey&) const = default;
    };

    struct Reading {
        qsizetype bytes = 0;
        ImageFormat format = ImageFormat::png;
        bool operator==(const Reading&) const = default;
    };

    // Requests that follow each other faster than this are one.
    static constexpr MainLoop::Milliseconds debounce{200};

    // `changed` is called when a reading has come, or turned out not to be had.
    CropSizeEstimator(MainLoop& loop, Workers& workers, const Preferences& preferences, std::function<void()> changed);
    ~CropSizeEstimator();
    CropSizeEstimator(const CropSizeEstimator&) = delete;
    CropSizeEstimator& operator=(const CropSizeEstimator&) = delete;

    // The readings of another crop are forgotten, and so are those that are on their way.
    void setContext(Context context);

    // Has readings made of these sizes, which are rounded to whole pixels. Those that are there or on their way are not
    // made again. Nothing comes of it without a context, or when the crop misses the canvas.
    void request(const std::vector<Size>& sizes);

    // Of the crop that was asked about first after the images had changed, at its own size: what a menu compares with.
    const std::optional<Reading>& source() const { return m_source.reading; }

    const std::map<SizeKey, Reading>& readings() const { return m_readings; }

    // The reading of a size, wherever it comes from.
    std::optional<Reading> reading(SizeKey size) const;

private:
    // What a background job takes with it. It answers nothing where there is nothing to cut out, what was cut out can't
    // be encoded, or the answer is not wanted any more.
    struct Job {
        QImage pixels;
        double pixelsScale = 1;
        QRect crop;
        SizeKey size;
        SaveSettings settings;
        std::stop_token isStale; // asked for by nobody any more

        std::optional<Reading> encode() const;
    };

    // The crop at its own size, of the images that were given last.
    struct Source {
        qint64 image = 0; // keys of images; 0 is none
        qint64 pixelsImage = 0;
        quint64 generation = 0; // of images; one that comes back is another
        QRect crop;             // what the reading is made of
        std::optional<Reading> reading;
        bool isInFlight = false;

        bool isOf(const Context& context) const;

        bool isThereOrOnItsWay() const { return reading || isInFlight; }
    };

    void takeSource(const Context& context);
    QRect crop() const;
    bool sourceServes(SizeKey size) const;
    Job job(SizeKey size) const;
    Wait<std::optional<Reading>> encoded(Job job);
    void encodeSource();
    QCoro::Task<> readSource(Job job);
    void flush();
    QCoro::Task<> read(Job job, quint64 generation);

    MainLoop& m_loop;
    const Preferences& m_preferences;
    std::function<void()> m_changed;

    Source m_source;
    std::map<SizeKey, Reading> m_readings;
    std::optional<Context> m_context;
    std::set<SizeKey> m_wanted;
    std::set<SizeKey> m_inFlight;
    MainLoop::TimerID m_pending = 0;
    quint64 m_generation = 0;
    std::stop_source m_stale; // told to the jobs of this generation
    Scope m_scope;
};

} // namespace Kovrel
