#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/documents/PageImages.h"
#endif

#include <QCache>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <map>
#include <stop_token>
#include <vector>

namespace fiscarel::pages {

/// Pages drawn by the reading process, two at a time, the larger ones first; those asked for last
/// are kept in memory.
class RenderedPages final : public QObject, public PageImages {
    Q_OBJECT

  public:
    explicit RenderedPages(QObject* parent = nullptr);
    /// Ends what is under way at once.
    ~RenderedPages() override;
    RenderedPages(const RenderedPages&) = delete;
    RenderedPages& operator=(const RenderedPages&) = delete;
    RenderedPages(RenderedPages&&) = delete;
    RenderedPages& operator=(RenderedPages&&) = delete;

    void request(const std::filesystem::path& file, int page, int width,
                 std::function<void(QImage)> done) override;

  private:
    void drawn(const QString& key, const QImage& image);

    std::map<QString, std::vector<std::function<void(QImage)>>> waiting_;
    QCache<QString, QImage> kept_; ///< costs in kilobytes
    std::stop_source stop_;
    QThreadPool pool_;
};

} // namespace fiscarel::pages
