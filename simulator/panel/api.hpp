#pragma once

#include <functional>
#include <optional>
#include <string>

#include "panel/feed.hpp"
#include "panel/history.hpp"
#include "panel/http.hpp"
#include "panel/kept_recording.hpp"
#include "panel/loop_calls.hpp"
#include "panel/panel.hpp"

namespace impresora {

struct SceneRow;

// Nothing but an object, of a depth that is none of an attack.
std::optional<Json> ReadObject(const std::string& body);

// What the panel's addresses answer. Every question about the printer is put to its own thread.
class Api {
 public:
  Api(PanelHost host, History& history, KeptRecording& recording, Feed& feed, LoopCalls& loop);

  // Answers the request, whatever it is.
  void Handle(const Request& request, Response& response);

  // One row of the table of addresses. `number` is what stands for N in its path.
  struct Call {
    const Request& request;
    Response& response;
    unsigned number;
  };

  void Page(const Call& call);
  void State(const Call& call);
  void PaperText(const Call& call);
  void PaperLines(const Call& call);
  void Documents(const Call& call);
  void DocumentText(const Call& call);
  void DocumentPicture(const Call& call);
  void TearPaper(const Call& call);
  void Exchanges(const Call& call);
  void GetControls(const Call& call);
  void SetControls(const Call& call);
  void GetFaults(const Call& call);
  void AddFaults(const Call& call);
  void RemoveFault(const Call& call);
  void RemoveAllFaults(const Call& call);
  void PowerCycle(const Call& call);
  void Check(const Call& call);
  void Till(const Call& call);
  void Commands(const Call& call);
  void GetScenes(const Call& call);
  void PlayScene(const Call& call);
  void Record(const Call& call);
  void RecordingStatus(const Call& call);
  void RecordingText(const Call& call);
  void TraceText(const Call& call);
  void Events(const Call& call);

 private:
  // What a question to the printer came to.
  struct Reply {
    int status = 200;
    std::string body;
    const char* type = "application/json; charset=utf-8";
  };
  void Answer(const Call& call, std::function<Reply()> question);

  void Changed();
  Reply StateReply();
  Reply SetControlsNow(const std::string& body);
  Reply CheckNow(const std::string& body);
  Reply PlayNow(const SceneRow& scene, bool on);
  Reply DocumentReply(unsigned ordinal, bool picture);
  bool SendNews(Listener& listener, Feed::Place& place);
  void TellNews(Listener& listener, Feed::Place place);

  PanelHost host_;
  Session& session_;
  History& history_;
  KeptRecording& recording_;
  Feed& feed_;
  LoopCalls& loop_;
};

}  // namespace impresora
