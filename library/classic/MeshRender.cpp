#include "classic/MeshRender.h"

#include <string>

#include "classic/SelectionMesh.h"
#include "core/EHierarchyHelp.h"
#include "core/MessageSink.h"
#include "core/ProgressSink.h"
#include "geometry/OPolygonStream.h"

namespace mv {

namespace {

// Forwards the walk's progress and cancels it once a limit of the options is passed.
class WalkBudget : public ProgressHandler {
 public:
  WalkBudget(const MeshRenderOptions& options, ProgressHandler* next, const MeshData& mesh)
      : options_(options), next_(next), mesh_(mesh) {}

  void start() override {}
  void finish() override {}
  void spin() override {}
  void setProgress(double value) override {
    ++visits_;
    if (next_) next_->setProgress(value);
  }
  bool isCancelled() override {
    if (!exceeded_ && overBudget()) {
      exceeded_ = true;
      messageSink.error("render: the scene makes more than " + std::to_string(options_.maxVisits) +
                        " objects or " + std::to_string(options_.maxPolygons) +
                        " polygons; the rest is left out");
    }
    if (exceeded_) return true;
    cancelled_ = cancelled_ || (next_ && next_->isCancelled());
    return cancelled_;
  }

  bool exceeded() const { return exceeded_; }
  bool cancelled() const { return cancelled_; }

 private:
  bool overBudget() const {
    return (options_.maxVisits > 0 && visits_ > options_.maxVisits) ||
           (options_.maxPolygons > 0 && mesh_.getPolygonCount() > options_.maxPolygons);
  }

  const MeshRenderOptions& options_;
  ProgressHandler* next_;
  const MeshData& mesh_;
  long visits_ = 0;
  bool exceeded_ = false;
  bool cancelled_ = false;
};

// The handler's start and finish, or the sink's when the options name none.
void startProgress(ProgressHandler* progress) {
  if (progress)
    progress->start();
  else
    progressSink.start();
}

void finishProgress(ProgressHandler* progress) {
  if (progress)
    progress->finish();
  else
    progressSink.finish();
}

}  // namespace

MeshRenderOutcome renderMesh(Node& root, MeshData& mesh, const MeshRenderOptions& options) {
  ProgressHandler* next = options.progress ? options.progress : progressSink.handler;
  WalkBudget budget(options, next, mesh);
  SelectionMesh selecting(mesh);
  {
    OPolygonStream stream(&selecting, true);
    selecting.watch(&stream);
    EHierarchyHelp help;
    help.progress = &budget;
    startProgress(options.progress);
    root.evaluate(help, stream);
    stream.flush();
    finishProgress(options.progress);
  }
  selecting.watch(nullptr);
  selecting.finish();
  if (budget.exceeded()) return MeshRenderOutcome::OverBudget;
  return budget.cancelled() ? MeshRenderOutcome::Cancelled : MeshRenderOutcome::Complete;
}

}  // namespace mv
