#include "InProcessWord.h"

#include "Server.h"
#include "StandinObject.h"

namespace standin {
struct InProcessWord::State
{
    std::shared_ptr<Server> server;
    std::vector<std::string> lines;
    std::vector<CalledMember> members;
};

InProcessWord::InProcessWord(const InProcessWordOptions& options) : state_(std::make_unique<State>())
{
    state_->server = Server::make(options.switches);
    state_->server->clock = options.clock;
    state_->server->documentsInRunningObjectTable = options.documentsInRunningObjectTable;
    state_->server->writesFiles = options.writesFiles;
    state_->server->keptFiles = options.keptFiles;
    state_->server->transcript = [state = state_.get()](const std::string& line, const CalledMember& member) {
        state->lines.push_back(line);
        state->members.push_back(member);
    };
    state_->server->start();
}

InProcessWord::~InProcessWord()
{
    state_->server->transcript = nullptr;
    state_->server->end();
}

Word::_ApplicationPtr InProcessWord::application() const
{
    return state_->server->application();
}

const std::vector<std::string>& InProcessWord::transcript() const
{
    return state_->lines;
}

void InProcessWord::clearTranscript()
{
    state_->lines.clear();
    state_->members.clear();
}

const std::vector<CalledMember>& InProcessWord::calledMembers() const
{
    return state_->members;
}

long InProcessWord::callCount() const
{
    return state_->server->callCount();
}

void InProcessWord::failCall(long ordinal, HRESULT result)
{
    state_->server->faults.failCall(callCount() + ordinal, result);
}

void InProcessWord::failFromCall(long ordinal, HRESULT result)
{
    state_->server->faults.failFromCall(callCount() + ordinal, result);
}

void InProcessWord::rejectCall(long ordinal, HRESULT result, int times)
{
    state_->server->faults.rejectCall(callCount() + ordinal, result, times);
}

void InProcessWord::clearFaults()
{
    state_->server->faults.clear();
}

long InProcessWord::liveObjects() const
{
    return state_->server->liveObjects();
}

std::shared_ptr<::standin::model::Document> InProcessWord::model(Word::_Document* document) const
{
    const StandinObject* object = StandinObject::of(document);
    return object ? object->documentModel() : nullptr;
}

::standin::model::Application& InProcessWord::model() const
{
    return state_->server->model();
}

bool InProcessWord::hasQuit() const
{
    return state_->server->hasEnded();
}

const std::shared_ptr<Server>& InProcessWord::server() const
{
    return state_->server;
}
} // namespace standin
