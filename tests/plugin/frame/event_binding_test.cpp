#include "frame/event_binding.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace arap {
namespace {

/// A sink that notes what it hears and then does something.
class Listener final : public EventSink {
 public:
  Listener(std::string sName, std::vector<std::string>& aHeard) : name_(std::move(sName)), heard_(aHeard) {}
  void on_event(Event event, Arguments args) override {
    heard_.push_back(name_ + ":" + std::string(name_of(event)));
    if (then) then(args);
  }
  std::function<void(Arguments)> then;

 private:
  std::string name_;
  std::vector<std::string>& heard_;
};

class Source final : public Object {
 public:
  std::string type_name() const override { return "Source"; }
  Variant invoke(Member member, Access, Arguments) override { no_such_member(member); }
  EventSource* event_source() override { return &events; }
  EventSourceList events;
};

class Silent final : public Object {
 public:
  std::string type_name() const override { return "Silent"; }
  Variant invoke(Member member, Access, Arguments) override { no_such_member(member); }
};

class Owner {
 public:
  Owner() : member(*this, &Owner::OnEvent) {}
  void OnEvent(Event event, Arguments) { heard.push_back(event); }
  EventMember<Owner> member;
  std::vector<Event> heard;
};

class EventFiring : public testing::Test {
 protected:
  void Fire() { source.fire(Event::AfterNewBill, {}); }

  EventSourceList source;
  std::vector<std::string> heard;
  Listener a{"a", heard};
  Listener b{"b", heard};
  Listener c{"c", heard};
};

TEST_F(EventFiring, SinksHearInTheOrderInWhichTheyCame) {
  source.advise(b);
  source.advise(a);
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"b:AfterNewBill", "a:AfterNewBill"}));
}

TEST_F(EventFiring, ASinkThatRemovesItselfHearsOnlyTheRunningEvent) {
  const auto nCookie = source.advise(a);
  source.advise(b);
  a.then = [&](Arguments) { source.unadvise(nCookie); };
  Fire();
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill", "b:AfterNewBill", "b:AfterNewBill"}));
}

TEST_F(EventFiring, ASinkThatAnotherRemovesHearsNothingMore) {
  source.advise(a);
  const auto nCookie = source.advise(b);
  source.advise(c);
  a.then = [&](Arguments) { source.unadvise(nCookie); };
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill", "c:AfterNewBill"}));
}

TEST_F(EventFiring, ASinkThatIsAddedMeanwhileHearsTheNextEvent) {
  source.advise(a);
  a.then = [&](Arguments) {
    a.then = nullptr;
    source.advise(b);
  };
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill"}));
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill", "a:AfterNewBill", "b:AfterNewBill"}));
}

TEST_F(EventFiring, AnErrorOfASinkEndsTheFiringAndReachesTheHost) {
  source.advise(a);
  source.advise(b);
  a.then = [](Arguments) { throw AutomationError(77, "sink", "broken"); };
  try {
    Fire();
    FAIL() << "the error was swallowed";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 77);
    EXPECT_EQ(error.source(), "sink");
  }
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill"}));
}

TEST_F(EventFiring, TheSourceStillFiresAfterAnError) {
  source.advise(a);
  source.advise(b);
  a.then = [&](Arguments) {
    a.then = nullptr;
    throw AutomationError(77, "sink", "broken");
  };
  EXPECT_THROW(Fire(), AutomationError);
  heard.clear();
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill", "b:AfterNewBill"}));
}

TEST_F(EventFiring, AByReferenceArgumentComesBackChangedAndPassesFromSinkToSink) {
  source.advise(a);
  source.advise(b);
  bool bSeen = false;
  a.then = [](Arguments args) { args[0] = true; };
  b.then = [&](Arguments args) { bSeen = args[0].as<bool>(); };
  std::vector<Variant> aArgs{false};
  source.fire(Event::BeforeSave, aArgs);
  EXPECT_TRUE(bSeen);
  EXPECT_TRUE(aArgs[0].as<bool>());
}

TEST_F(EventFiring, AnEventMayFireAnotherOneOfTheSameSource) {
  source.advise(a);
  a.then = [&](Arguments) {
    a.then = nullptr;
    source.fire(Event::Change, {});
  };
  Fire();
  EXPECT_EQ(heard, (std::vector<std::string>{"a:AfterNewBill", "a:Change"}));
}

TEST_F(EventFiring, TheSameSinkAdvisedTwiceHearsTwiceAndLeavesOnce) {
  source.advise(a);
  const auto nSecond = source.advise(a);
  Fire();
  EXPECT_EQ(heard.size(), 2u);
  source.unadvise(nSecond);
  Fire();
  EXPECT_EQ(heard.size(), 3u);
}

TEST_F(EventFiring, AnUnknownCookieLeavesTheOthersAlone) {
  const auto nCookie = source.advise(a);
  source.unadvise(nCookie + 1);
  EXPECT_EQ(source.size(), 1u);
}

TEST(EventMember, HearsItsSourceUntilItIsCleared) {
  const auto oSource = make_object<Source>();
  Owner owner;
  owner.member.set(oSource);
  oSource->events.fire(Event::AfterLoadBill, {});
  owner.member.clear();
  oSource->events.fire(Event::AfterSave, {});
  EXPECT_EQ(owner.heard, std::vector<Event>{Event::AfterLoadBill});
  EXPECT_EQ(oSource->events.size(), 0u);
  EXPECT_FALSE(owner.member.source());
}

TEST(EventMember, LeavesTheFormerSourceForANewOne) {
  const auto oFirst = make_object<Source>();
  const auto oSecond = make_object<Source>();
  Owner owner;
  owner.member.set(oFirst);
  owner.member.set(oSecond);
  EXPECT_EQ(oFirst->events.size(), 0u);
  EXPECT_EQ(oSecond->events.size(), 1u);
}

TEST(EventMember, NothingClearsIt) {
  const auto oSource = make_object<Source>();
  Owner owner;
  owner.member.set(oSource);
  owner.member.set(Ref<Object>());
  EXPECT_EQ(oSource->events.size(), 0u);
  EXPECT_FALSE(owner.member.source());
}

TEST(EventMember, RefusesAnObjectWithoutEventsAndKeepsItsSource) {
  const auto oSource = make_object<Source>();
  Owner owner;
  owner.member.set(oSource);
  try {
    owner.member.set(make_object<Silent>());
    FAIL() << "an object without events was taken";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 459);
  }
  EXPECT_EQ(owner.member.source(), Ref<Object>(oSource));
  EXPECT_EQ(oSource->events.size(), 1u);
}

TEST(EventMember, LeavesItsSourceWhenItIsDestroyed) {
  const auto oSource = make_object<Source>();
  {
    Owner owner;
    owner.member.set(oSource);
    EXPECT_EQ(oSource->events.size(), 1u);
  }
  EXPECT_EQ(oSource->events.size(), 0u);
}

TEST(EventMember, MayClearItselfWhileItHearsAnEvent) {
  class Leaver {
   public:
    Leaver() : member(*this, &Leaver::OnEvent) {}
    void OnEvent(Event, Arguments) {
      ++heard;
      member.clear();
    }
    EventMember<Leaver> member;
    int heard = 0;
  };
  const auto oSource = make_object<Source>();
  Leaver leaver;
  leaver.member.set(oSource);
  oSource->events.fire(Event::AfterLoadBill, {});
  oSource->events.fire(Event::AfterLoadBill, {});
  EXPECT_EQ(leaver.heard, 1);
}

/// Lets go of its last reference while it hears an event, and notes when it ends.
class Released final : public Object {
 public:
  explicit Released(std::vector<std::string>& aLog) : log(aLog), member(*this, &Released::OnEvent) {}
  std::string type_name() const override { return "Released"; }
  Variant invoke(Member asked, Access, Arguments) override { no_such_member(asked); }
  void OnEvent(Event, Arguments) {
    *holder = nullptr;
    log.push_back("handler");
  }
  std::vector<std::string>& log;
  Ref<Released>* holder = nullptr;
  EventMember<Released> member;

 protected:
  ~Released() override {
    // What a terminator hands out and gets back.
    { const Ref<Released> passed(this); }
    log.push_back("end");
  }
};

TEST(EventMember, AnOwnerWhoseHandlerFailedEndsWithItsLastReference) {
  class Failing final : public Object {
   public:
    explicit Failing(bool& bEnded) : ended(bEnded), member(*this, &Failing::OnEvent) {}
    std::string type_name() const override { return "Failing"; }
    Variant invoke(Member asked, Access, Arguments) override { no_such_member(asked); }
    void OnEvent(Event, Arguments) { throw AutomationError(ErrorNumber::Overflow); }
    bool& ended;
    EventMember<Failing> member;

   protected:
    ~Failing() override { ended = true; }
  };
  const auto oSource = make_object<Source>();
  bool bEnded = false;
  auto owner = make_object<Failing>(bEnded);
  owner->member.set(oSource);
  EXPECT_THROW(oSource->events.fire(Event::AfterLoadBill, {}), AutomationError);
  EXPECT_FALSE(bEnded);
  owner = nullptr;
  EXPECT_TRUE(bEnded);
}

TEST(EventMember, ItsOwnerLivesToTheEndOfTheHandlerInWhichItIsReleased) {
  const auto oSource = make_object<Source>();
  std::vector<std::string> log;
  auto owner = make_object<Released>(log);
  owner->holder = &owner;
  owner->member.set(oSource);
  oSource->events.fire(Event::AfterLoadBill, {});
  EXPECT_EQ(log, (std::vector<std::string>{"handler", "end"}));
  EXPECT_EQ(oSource->events.size(), 0u);
}

}  // namespace
}  // namespace arap
