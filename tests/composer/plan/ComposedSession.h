#pragma once

#include "Choices.h"
#include "ModelStory.h"
#include "SampleStyles.h"

#include "Draft.h"
#include "Plan.h"
#include "StoryContent.h"

#include <optional>
#include <string>

/// Calls of a client, made up from choices, that two contents hear: one that keeps everything, and one that
/// is taken every now and then, planned, and written into a model of a story.
class ComposedSession
{
public:
    explicit ComposedSession(Choices choices);

    /// What the written story differs in from what was said; empty: in nothing.
    std::string run();
    /// The calls, a line each.
    [[nodiscard]] const std::string& story() const { return story_; }

private:
    void call();
    void text();
    void font();
    void table();
    void contents();
    void setStyle();
    void breakSection();
    void putPicture();
    void keepPicture();
    void breakDueSection();
    void putPictureIntoDraft();
    [[nodiscard]] std::optional<compose::Passage::Cell> cell() const;
    void flush();
    [[nodiscard]] std::string difference();

    template <class Call>
    void both(const std::string& line, Call call)
    {
        story_ += line + "\n";
        call(said_);
        call(taken_);
    }

    SampleStyles styles_;
    Choices choices_;
    bool isHeader_;
    compose::StoryContent said_;
    compose::StoryContent taken_;
    ModelStory model_;
    compose::Ground ground_;
    std::optional<compose::Draft> draft_;
    bool isSectionDue_ = false;
    std::string story_;
};
