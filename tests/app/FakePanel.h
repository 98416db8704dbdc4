#pragma once

#include "app/NavigationModel.h"
#include "app/PanelView.h"

namespace lumeroom::test {

/// A row of a given size, known by its strip.
class FakeRow : public LampControlStripView {
public:
    FakeRow(LampControlStrip& shownStrip, Size size)
        : strip(shownStrip)
        , m_size(size)
    {
    }
    Size size() const override { return m_size; }
    Size naturalSize() const override { return m_size; }
    void setWidth(float) override { }
    Point origin() const override { return m_origin; }
    void setOrigin(Point origin, bool) override { m_origin = origin; }
    void setShown(bool now) override
    {
        shown = now;
        timesHidden += now ? 0 : 1;
    }
    bool isBeingDragged() const override { return dragged; }
    bool hitTest(Point point) const override
    {
        return shown && point.x >= m_origin.x && point.x < m_origin.x + m_size.width
            && point.y >= m_origin.y && point.y < m_origin.y + m_size.height;
    }
    void showReNamePopover(const std::string&) override { popover = true; }
    bool isInUse() const override { return popover || dragged; }
    void popUpEffectMenu(const std::vector<EffectMenuItem>&) override { }

    LampControlStrip& strip;
    bool shown = false;
    int timesHidden = 0;
    bool dragged = false;
    bool popover = false;

private:
    Size m_size;
    Point m_origin;
};

/// A panel window without a window: it keeps what it is told.
class FakePanel : public PanelView {
public:
    void setTitle(const std::string& text) override { title = text; }
    void makeKeyAndFront() override { }
    int runModal(const Alert& alert) override
    {
        alerts.push_back(alert);
        return answer;
    }
    void setNavigation(NavigationModel& model, NavigationActions offered) override
    {
        navigation = &model;
        actions = std::move(offered);
    }
    void setDidEndLiveResize(std::function<void()> action) override { didEndLiveResize = action; }
    void startThrobber() override { throbbing = true; }
    void stopThrobber() override { throbbing = false; }
    void showNotice(const std::optional<PanelNotice>& now) override
    {
        notice = now;
        ++noticesShown;
    }
    void setFind(FindActions offered) override { find = std::move(offered); }
    void showFind(const std::optional<FoundCount>& count) override
    {
        found = count ? std::to_string(count->found) + " of " + std::to_string(count->all) : "";
    }
    std::unique_ptr<LampControlStripView> newControlStripView(
        LampControlStrip& strip, int theme) override
    {
        ++rowsMade;
        return theme > 3 ? nullptr : std::make_unique<FakeRow>(strip, rowSize);
    }
    Size contentSize() const override { return content; }
    Size screenSize() const override { return {1920, 1080}; }
    Size scrollViewSize() const override { return content; }
    void setContainerSize(Size) override { }
    void setContentSize(Size size) override { content = size; }
    void setContentMinSize(Size) override { }
    void setContentMaxSize(Size) override { }
    void setScrollers(bool horizontal, bool vertical) override
    {
        scrollers = {horizontal, vertical};
    }
    void reveal(const LampControlStripView& row) override
    {
        const LampControlStrip& strip = static_cast<const FakeRow&>(row).strip;
        revealed.push_back(strip.label().text());
        revealedTarget = strip.target();
    }
    void keepFocus() override { }
    void setKeyboardOrder(const std::vector<LampControlStripView*>& now) override
    {
        ++builds;
        rows.clear();
        for (auto* row : now)
            rows.push_back(static_cast<FakeRow*>(row));
    }
    void popUpMenu(MenuModel& menu, Point at) override
    {
        poppedUp = &menu;
        poppedUpAt = at;
    }
    void showWorkflowPopover(const WorkflowPopover& shown) override { workflow = shown; }
    void updateWorkflowPopover() override
    {
        if (workflow)
            workflowState = workflow->state(named);
    }
    void bringWorkflowPopoverToFront() override { broughtToFront += workflow ? 1 : 0; }
    void closeWorkflowPopover() override { workflow.reset(); }

    LampControlStrip& strip(std::size_t index) const { return rows.at(index)->strip; }
    std::vector<std::string> names() const
    {
        std::vector<std::string> list;
        for (const FakeRow* row : rows)
            list.push_back(row->strip.label().text());
        return list;
    }

    std::string title;
    NavigationModel* navigation = nullptr;
    NavigationActions actions;
    std::function<void()> didEndLiveResize;
    bool throbbing = false;
    std::optional<PanelNotice> notice;
    FindActions find;
    std::string found; ///< the count as it reads
    int noticesShown = 0;
    int builds = 0;
    int rowsMade = 0;
    int answer = 0; ///< the button that is pressed in alerts
    Size rowSize{800, 50};
    Size content{900, 400};
    std::pair<bool, bool> scrollers;
    std::vector<FakeRow*> rows; ///< as they show, from the first
    std::vector<std::string> revealed;
    StripTarget revealedTarget; ///< the last of them
    std::optional<WorkflowPopover> workflow;
    std::string named; ///< what the user has typed for a name
    WorkflowState workflowState; ///< as it shows
    int broughtToFront = 0;
    MenuModel* poppedUp = nullptr;
    Point poppedUpAt;
    std::vector<Alert> alerts;
};

} // namespace lumeroom::test
