#include "content/pictures/picture_laying.h"

#include "content/laid_files.h"
#include "content/pictures/picture_plan.h"
#include "content/sources.h"

#include <QBuffer>
#include <QImageWriter>

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>

namespace vorna {
namespace {

constexpr int jpegQuality = 84; // of 100; line drawings show no trace of it

std::string encoded(const QImage& image, const std::string& name) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer,
                        QByteArray::fromStdString(fs::path(name).extension().string()).mid(1));
    if (writer.format() == "jpg") {
        writer.setQuality(jpegQuality);
        writer.setOptimizedWrite(true);
    }
    if (!writer.write(image))
        throw Failure(name + ": " + writer.errorString().toStdString());
    return buffer.data().toStdString();
}

// Threads that take the next job until none is left.
class Workshop {
public:
    Workshop(const std::vector<PictureJob>& jobs, LaidFiles& files) : jobs_(jobs), files_(files) {}

    template <class MakeTools>
    void run(MakeTools&& makeTools) {
        const unsigned count = std::max(1U, std::thread::hardware_concurrency());
        std::vector<std::thread> threads;
        for (unsigned i = 0; i < count; ++i)
            threads.emplace_back([&] {
                PictureTools tools = makeTools();
                while (work(tools)) {
                }
            });
        for (std::thread& thread : threads)
            thread.join();
        if (failure_ != nullptr)
            std::rethrow_exception(failure_);
    }

private:
    // False when nothing is left to do.
    bool work(PictureTools& tools) {
        const std::size_t number = next_++;
        if (number >= jobs_.size())
            return false;
        const PictureJob& job = jobs_[number];
        try {
            const std::string bytes = encoded(job.draw(tools), job.names.front());
            const std::lock_guard lock(laying_);
            files_.write(job.names.front(), bytes);
            for (std::size_t i = 1; i < job.names.size(); ++i)
                files_.link(job.names[i], job.names.front());
        } catch (const Failure&) {
            const std::lock_guard lock(laying_);
            failure_ = std::current_exception();
            next_ = jobs_.size();
        }
        return true;
    }

    const std::vector<PictureJob>& jobs_;
    LaidFiles& files_;
    std::mutex laying_; // of the files and the failure
    std::atomic<std::size_t> next_ = 0;
    std::exception_ptr failure_;
};

} // namespace

void layPictures(const PicturePlan& plan) {
    const fs::path folder = plan.sources / "atlas";
    const Atlas atlas(folder);
    const ViewChoice choice(atlas, folder);
    const ReferenceTexts texts = readReferenceTexts(plan.sources);
    PathwayCodes codes;
    for (const auto& [meridian, own] : texts.meridians)
        codes.emplace(meridian, own.code);
    const std::vector<PictureJob> jobs =
        picturePlan(texts, readMeridianViews(atlas, folder / "meridian_views.tsv"));
    LaidFiles files(plan.into);
    Workshop(jobs, files).run([&] {
        return PictureTools{.atlas = atlas, .points = PointPainter(choice, codes)};
    });
    if (plan.list.empty())
        return;
    files.removeStale(plan.list);
    files.writeList(plan.list);
}

} // namespace vorna
