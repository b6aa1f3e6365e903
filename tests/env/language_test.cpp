// The suite's form resources: when and how they are requested.
#include "env/language.h"

#include "tests/env/env_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

constexpr std::u16string_view kResources = u"ZEPFrmRes.FrmResLoader";

void HasResources(RecordingFactory& factory) {
  factory.Object(kResources)
      .On(u"NeedMLColumnHeaders", Reply(false))
      .AllowPut(u"NeedMLColumnHeaders")
      .On(u"LoadFrmResStrings", Reply(Value()))
      .On(u"GetQ7FontProps", factory.Answering(u"font"));
  factory.Object(u"font")
      .On(u"", R"("Font.Name")", Reply(u"新細明體"))
      .On(u"", R"("Font.Charset")", Reply(136));
}

class Language : public EnvTest {
 protected:
  Language() { HasResources(factory); }
  ObjectPtr form = factory.NewObject(u"form");
};

TEST_F(Language, ReplacesTheTextsOfAControl) {
  SetProperties(factory, u"LANGUAGE=cht");
  LoadControlTexts(factory, form);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      create ZEPFrmRes.FrmResLoader
      ZEPFrmRes.FrmResLoader.NeedMLColumnHeaders()
      ZEPFrmRes.FrmResLoader.LoadFrmResStrings([form])
      release ZEPFrmRes.FrmResLoader
      )"));
}

TEST_F(Language, ReplacesTheTextsOfAFormUnderItsKey) {
  SetProperties(factory, u"LANGUAGE=en");
  LoadFormTexts(factory, form, u"Q7INDUSTRY");
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      create ZEPFrmRes.FrmResLoader
      put ZEPFrmRes.FrmResLoader.NeedMLColumnHeaders = True
      ZEPFrmRes.FrmResLoader.LoadFrmResStrings([form], "Q7INDUSTRY")
      release ZEPFrmRes.FrmResLoader
      )"));
}

TEST_F(Language, LeavesTheBuiltInTextsInAnySpelling) {
  for (const char16_t* language :
       {u"LANGUAGE=chs", u"LANGUAGE=CHS", u"language=Chs", u"x=1", u""}) {
    RecordingFactory other(log);
    other.Object(kShareProps).On(u"GetProperty", Reply(Value()).Writing(1, language));
    LoadControlTexts(other, form);
    LoadFormTexts(other, form, u"Q7INDUSTRY");
  }
  EXPECT_EQ(log.Count("create ZEPFrmRes.FrmResLoader"), 0u);
}

TEST_F(Language, LeavesTheBuiltInTextsWithoutAPropertiesString) {
  factory.Refuses(kShareProps);
  LoadControlTexts(factory, form);
  LoadFormTexts(factory, form, u"Q7INDUSTRY");
  EXPECT_EQ(log.Count("create ZEPFrmRes.FrmResLoader"), 0u);
}

TEST_F(Language, ReadsTheTitleFont) {
  SetProperties(factory, u"LANGUAGE=cht");
  Font font;
  ReadFontProperties(factory, font);
  EXPECT_EQ(Utf8(font.name), "新細明體");
  EXPECT_EQ(font.charset, 136);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPFrmRes.FrmResLoader
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPFrmRes.FrmResLoader.GetQ7FontProps("cht")
      font("Font.Name")
      font("Font.Charset")
      release font
      release ZEPFrmRes.FrmResLoader
      )"));
}

TEST_F(Language, ReadsTheTitleFontEvenForTheBuiltInLanguage) {
  SetProperties(factory, u"");
  Font font;
  ReadFontProperties(factory, font);
  EXPECT_EQ(log.Count(R"(ZEPFrmRes.FrmResLoader.GetQ7FontProps("chs"))"), 1u);
}

TEST_F(Language, TreatsMissingFontPropertiesAsUndecided) {
  SetProperties(factory, u"LANGUAGE=en");
  RecordingFactory other(log);
  SetProperties(other, u"LANGUAGE=en");
  other.Object(kResources).On(u"GetQ7FontProps", other.Answering(u"font"));
  other.Object(u"font").On(u"", Reply(Null{}));
  Font font;
  ReadFontProperties(other, font);
  EXPECT_TRUE(font.name.empty());
  EXPECT_EQ(font.charset, kAnyCharset);
}

TEST_F(Language, KeepsTheNameOfATitleFontWhoseCharacterSetFails) {
  for (const Reply& charset : {Reply(u"繁体"), Reply::Failing(-5, u"断开")}) {
    RecordingFactory other(log);
    SetProperties(other, u"LANGUAGE=cht");
    other.Object(kResources).On(u"GetQ7FontProps", other.Answering(u"font"));
    other.Object(u"font")
        .On(u"", R"("Font.Name")", Reply(u"新細明體"))
        .On(u"", R"("Font.Charset")", charset);
    Font font;
    EXPECT_NE(ErrorOf([&] { ReadFontProperties(other, font); }), std::nullopt);
    EXPECT_EQ(Utf8(font.name), "新細明體");
    EXPECT_EQ(font.charset, kAnyCharset);
  }
}

TEST_F(Language, FailsWithoutAFontObject) {
  RecordingFactory other(log);
  SetProperties(other, u"LANGUAGE=en");
  other.Object(kResources).On(u"GetQ7FontProps", Reply(nullptr));
  Font font;
  EXPECT_EQ(ErrorOf([&] { ReadFontProperties(other, font); }), NumberOf(ErrorNumber::ObjectNotSet));
  EXPECT_EQ(other.LiveObjects(), 0);
}

TEST(LanguageFailures, FailsWithTheSuitesErrorAndLeaksNothing) {
  const auto control = [](RecordingFactory& factory) { LoadControlTexts(factory, nullptr); };
  const auto form = [](RecordingFactory& factory) { LoadFormTexts(factory, nullptr, u"key"); };
  const auto font = [](RecordingFactory& factory) {
    Font read;
    ReadFontProperties(factory, read);
  };
  const std::initializer_list<std::function<void(RecordingFactory&)>> services{control, form, font};
  for (const auto& service : services) {
    FailEachCallInTurn([&service](int failingCall) {
      CallLog log;
      RecordingFactory factory(log);
      HasResources(factory);
      SetProperties(factory, u"LANGUAGE=cht");
      factory.FailCall(failingCall);
      const auto error = ErrorOf([&] { service(factory); });
      // Without a properties string the language is the built-in one; that is not an error.
      const bool ignored = log.Count("create ZEPPropsMgr.ShareProps fails") +
                               log.Count(R"(ZEPPropsMgr.ShareProps.GetProperty("PropsString", )"
                                         "ref Empty) fails") >
                           0;
      EXPECT_EQ(error,
                failingCall == 0 || ignored ? std::nullopt : std::optional(kInjectedFailure));
      EXPECT_EQ(factory.LiveObjects(), 0);
      return factory.CallCount();
    });
  }
}

}  // namespace
}  // namespace pricedown
