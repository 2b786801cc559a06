#include <gtest/gtest.h>

#include <set>

#include "Device.h"
#include "component/PropertyTable.h"
#include "support/CTools.h"

namespace tovarek::test {
namespace {

TEST(Component, HasTheDefaultsOfAFreshObject) {
    const Tovarek fresh;
    EXPECT_TRUE(fresh.mustGenerateXif());
    EXPECT_TRUE(fresh.mustGenerateTypes());
    EXPECT_TRUE(fresh.createUnitsFromReference());
    EXPECT_FALSE(fresh.addNameInCpString());
    EXPECT_EQ(fresh.catalogFile(), "ldrf.cat");
    EXPECT_EQ(fresh.catalogDir(), "");
    EXPECT_EQ(fresh.typeFilesXMLPrefix(), "SNVT_");
    EXPECT_EQ(fresh.creator(), "Tovarek");
    EXPECT_EQ(fresh.creatorDescription(), "Tovarek utility");
    EXPECT_EQ(fresh.localeID(), 1033);
    EXPECT_EQ(fresh.langExtension(), "ENU");
    EXPECT_EQ(fresh.typeFileDescription(), "Type file");
    EXPECT_EQ(fresh.langFileDescription(), "Lang file");
    EXPECT_EQ(fresh.fptFileDescription(), "Functional profile file");
    EXPECT_EQ(fresh.majorVersion(), 1);
    EXPECT_EQ(fresh.minorVersion(), 0);
}

// A value with its kind as text. Nodes cannot be compared; none is set here.
std::string Shown(const PropertyValue& value) {
    std::string text = std::to_string(value.index()) + ' ';
    if (const auto* string = std::get_if<std::string>(&value))
        text += *string;
    else if (const auto* flag = std::get_if<bool>(&value))
        text += *flag ? "true" : "false";
    else if (const auto* number = std::get_if<std::int32_t>(&value))
        text += std::to_string(*number);
    else
        text += std::get<XmlNode>(value) ? "a node" : "no node";
    return text;
}

// Every row must reach its own member: a value set through one row is read back by it and by no other.
TEST(Properties, EachRowHoldsAValueOfItsOwn) {
    std::set<std::string_view> names;
    for (const Property& property : Properties()) {
        EXPECT_TRUE(names.insert(property.name).second);
        if (property.kind == PropertyKind::node || property.name.starts_with("catalog"))
            continue;
        Tovarek component;
        Tovarek untouched;
        PropertyValue value = std::string("\xC2\xB0 " + std::string(property.name));
        if (property.kind == PropertyKind::integer)
            value = std::int32_t{-7};
        else if (property.kind == PropertyKind::boolean)
            value = !std::get<bool>(property.get(component));
        property.set(component, value);
        for (const Property& other : Properties()) {
            const PropertyValue now = other.get(component);
            if (&other == &property)
                EXPECT_EQ(Shown(now), Shown(value)) << property.name;
            else
                EXPECT_EQ(Shown(now), Shown(other.get(untouched)))
                    << property.name << " changed " << other.name;
        }
    }
    EXPECT_EQ(names.size(), 33U);
}

TEST(Component, TheProfileSourceThatIsSetLastWins) {
    const Scratch scratch;
    const XmlNode node = CTools().SearchXmlNode(scratch.File("a.xml", "<a/>"), "a", CErrorHandler());
    Tovarek component;
    component.xmlProfileNodeName("name");
    component.iniProfileFile("i");
    component.xifProfileFile("x");
    EXPECT_EQ(component.iniProfileFile(), "");
    component.xmlProfileFile("m");
    EXPECT_EQ(component.xifProfileFile(), "");
    component.xmlProfileNode(node);
    EXPECT_EQ(component.xmlProfileFile(), "");
    EXPECT_TRUE(component.xmlProfileNode());
    component.iniProfileFile("");
    EXPECT_FALSE(component.xmlProfileNode()) << "an empty source empties the others as well";
    EXPECT_EQ(component.xmlProfileNodeName(), "name");

    component.xmlTemplateNodeName("name");
    component.iniTemplateFile("i");
    component.xmlTemplateFile("m");
    EXPECT_EQ(component.iniTemplateFile(), "");
    component.xmlTemplateNode(node);
    EXPECT_EQ(component.xmlTemplateFile(), "");
    component.xmlTemplateFile(component.xmlTemplateFile());
    EXPECT_FALSE(component.xmlTemplateNode());
    EXPECT_EQ(component.xmlTemplateNodeName(), "name");
}

TEST(Component, AFailedCatalogStaysFailed) {
    Tovarek component;
    const Scratch scratch;
    const auto error = Raised([&] { component.catalogDir(scratch.Folder()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), eQVXIFerr_erroraccessingSNVTmasterlist);
    EXPECT_FALSE(error->Context().reason.empty());
    EXPECT_EQ(component.catalogDir(), scratch.Folder()) << "the value stays stored";
    EXPECT_EQ(RaisedNumber([&] { component.catalogDir(TOVAREK_CATALOG); }), 1130);
    Tovarek other;
    EXPECT_EQ(RaisedNumber([&] { other.catalogFile("ldrf.cat"); }), 1130) << "there is no folder yet";
}

TEST(Generate, WithBothSwitchesOffTheTemplateIsStillChecked) {
    Device device;
    device.Component().mustGenerateXif(false);
    device.Component().iniProfileFile("");
    EXPECT_EQ(device.Generate(), 0);
    EXPECT_FALSE(FileExists(device.Component().outputXIFfile()));
    device.Component().iniTemplateFile(device.Files().Path("missing.ini"));
    EXPECT_EQ(device.Generate(), 1052);
}

TEST(Generate, ABadProfileIsFoundBeforeTheOutputIsOpened) {
    Device device;
    device.Component().iniProfileFile(device.Files().File("bad.ini", "[Line6]\n"));
    EXPECT_EQ(device.Generate(), 1001);
    EXPECT_FALSE(FileExists(device.Component().outputXIFfile()));
    device.Component().iniProfileFile("");
    EXPECT_EQ(device.Generate(), 1051);
}

TEST(Generate, ProfileAndOutputMayBeTheSameFile) {
    Device device;
    ASSERT_EQ(device.Generate(), 0);
    const std::string first = device.Xif();
    device.Component().xifProfileFile(device.Component().outputXIFfile());
    ASSERT_EQ(device.Generate(), 0);
    EXPECT_EQ(device.Xif(), first);
    EXPECT_EQ(device.Component().WrittenFiles(), std::vector{device.Component().outputXIFfile()})
        << "those of the last generation alone";
}

TEST(Generate, NamesAreAddedToDeclarationsWhereAsked) {
    Device device;
    const std::string path = device.Files().File(
        "t.xml",
        "<D><PROGRAMID>9000010A0B040100</PROGRAMID><FILETYPEIIVERSION>1</FILETYPEIIVERSION>"
        "<CPS><cpGain><SISD>1,0,0,49,2</SISD></cpGain></CPS></D>");
    device.Component().xmlTemplateNodeName("D");
    device.Component().xmlTemplateFile(path);
    device.Component().addNameInCpString(true);
    ASSERT_EQ(device.Generate(), 0);
    EXPECT_NE(device.Xif().find("\r\n\"1,0,0,49,2;cpGain\"\r\n"), std::string::npos);
    device.Component().addNameInCpString(false);
    ASSERT_EQ(device.Generate(), 0);
    EXPECT_NE(device.Xif().find("\r\n\"1,0,0,49,2;\"\r\n"), std::string::npos);
}

}  // namespace
}  // namespace tovarek::test
