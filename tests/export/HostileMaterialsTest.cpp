// Materials as a hostile or careless scene file gives them: colours out of range, names that are
// not UTF-8, texture names that are not plain relative file names. The files land in the test
// output, which CI's glTF validator walks.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ExportSamples.h"
#include "GlbReading.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "export/TextureReference.h"
#include "export/Utf8Text.h"
#include "support/CapturingMessageHandler.h"
#include "support/TestOutput.h"

namespace {

std::string contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

const double kInfinity = std::numeric_limits<double>::infinity();

// Material k of the sample mesh's three materials (-1, 0, 1) is made hostile in turn.
std::vector<mv::ExportMaterial> hostileMaterials(const std::string& texture) {
  return {{"Eiche\xe4", 2.0, -1.0, kInfinity, texture},
          {"\xff\xfe leaf \xc3\xa4", std::nan(""), 0.5, -kInfinity, ""}};
}

}  // namespace

TEST(HostileMaterials, utf8PassesAndOtherBytesAreReadAsLatin1) {
  const std::pair<std::string, std::string> rows[] = {
      {"plain", "plain"},
      {"Eiche\xe4", "Eiche\xc3\xa4"},
      {"\xc3\xa4 kept", "\xc3\xa4 kept"},
      {"\xe2\x82\xac", "\xe2\x82\xac"},                          // the euro sign, three bytes
      {"\xc3", "\xc3\x83"},                                      // a lead byte at the end
      {"\xc0\xaf", "\xc3\x80\xc2\xaf"},                          // an overlong '/'
      {"\xed\xa0\x80", "\xc3\xad\xc2\xa0\xc2\x80"},              // a surrogate
      {"\xf4\x90\x80\x80", "\xc3\xb4\xc2\x90\xc2\x80\xc2\x80"},  // above U+10FFFF
  };
  for (const auto& [bytes, text] : rows) EXPECT_EQ(mv::Utf8Text::fromBytes(bytes), text) << text;
}

TEST(HostileMaterials, textureReferencesStayInsideTheOutputFolder) {
  struct Row {
    std::string file, reference, uri;
    bool warned;
  };
  const Row rows[] = {
      {"bark.png", "bark.png", "bark.png", false},
      {"textures/./bark.png", "textures/bark.png", "textures/bark.png", false},
      {"textures\\bark.png", "textures/bark.png", "textures/bark.png", false},
      {"a/../bark.png", "bark.png", "bark.png", false},
      {"p%41.png", "p%41.png", "p%2541.png", false},
      {"bark#1.png", "bark#1.png", "bark%231.png", false},
      {"what?.png", "what?.png", "what%3F.png", false},
      {"my bark.png", "my bark.png", "my%20bark.png", false},
      {"../../../../etc/passwd", "passwd", "passwd", true},
      {"/usr/share/leaf.png", "leaf.png", "leaf.png", true},
      {"http://example.com/x.png", "x.png", "x.png", true},
      {"file:///tmp/y.png", "y.png", "y.png", true},
      {"C:\\textures\\bark.png", "bark.png", "bark.png", true},
  };
  for (const Row& row : rows) {
    CapturingMessageHandler messages;
    const std::string reference = mv::TextureReference::relative(row.file);
    EXPECT_EQ(reference, row.reference) << row.file;
    EXPECT_EQ(mv::TextureReference::uri(reference), row.uri) << row.file;
    EXPECT_EQ(messages.warnings.size(), row.warned ? 1u : 0u) << row.file;
  }
}

// Each texture is written beside the output under the name it is reduced to, so that a validator
// that decodes the URI finds it.
TEST(HostileMaterials, glbColoursAreClampedNamesUtf8AndUrisRelative) {
  struct Row {
    std::string texture, beside, uri;
  };
  const Row rows[] = {{"p%41.png", "p%41.png", "p%2541.png"},
                      {"bark#1.png", "bark#1.png", "bark%231.png"},
                      {"what?.png", "what?.png", "what%3F.png"},
                      {"../../../../etc/passwd", "passwd", "passwd"}};
  int k = 0;
  for (const auto& [texture, beside, uri] : rows) {
    writeSampleTexture(testOutputPath(beside));
    const std::string path = testOutputPath("hostile-materials-" + std::to_string(k++) + ".glb");
    CapturingMessageHandler messages;
    ASSERT_TRUE(mv::GlbWriter(hostileMaterials(texture)).write(sampleMesh(), path)) << texture;
    const tinygltf::Model model = readGlb(path);
    ASSERT_EQ(model.materials.size(), 3u);
    const tinygltf::Material& oak = model.materials[1];
    EXPECT_EQ(oak.name, "Eiche\xc3\xa4");
    EXPECT_EQ(oak.pbrMetallicRoughness.baseColorFactor, (std::vector<double>{1, 0, 1, 1}));
    EXPECT_EQ(model.materials[2].name, "\xc3\xbf\xc3\xbe leaf \xc3\xa4");
    EXPECT_EQ(model.materials[2].pbrMetallicRoughness.baseColorFactor,
              (std::vector<double>{0, mv::GlbWriter::linearFromSrgb(0.5), 0, 1}));
    ASSERT_EQ(model.images.size(), 1u);
    EXPECT_EQ(model.images[0].uri, uri);
    EXPECT_EQ(messages.warnings.size(), beside == texture ? 0u : 1u) << texture;
  }
}

TEST(HostileMaterials, mtlColoursAreClampedAndTexturesRelative) {
  const std::string path = testOutputPath("hostile-materials.obj");
  CapturingMessageHandler messages;
  ASSERT_TRUE(mv::ObjWriter(hostileMaterials("../../../../etc/passwd")).write(sampleMesh(), path));
  const std::string library = contents(mv::ObjWriter::materialLibraryPath(path));
  EXPECT_NE(library.find("newmtl Eiche\xe4\nKd 1 0 1\n"), std::string::npos) << library;
  EXPECT_NE(library.find("Kd 0 0.5 0\n"), std::string::npos) << library;
  EXPECT_NE(library.find("map_Kd passwd\n"), std::string::npos) << library;
  EXPECT_EQ(library.find(".."), std::string::npos);
}

TEST(HostileMaterials, controlCharactersCannotStartNewMtlLines) {
  const std::string path = testOutputPath("control-characters.obj");
  CapturingMessageHandler messages;
  ASSERT_TRUE(mv::ObjWriter({{"bark\nKd 9 9 9", 0.4, 0.3, 0.2, "bark.png\nmap_Ks evil.png"}})
                  .write(sampleMesh(), path));
  const std::string library = contents(mv::ObjWriter::materialLibraryPath(path));
  EXPECT_NE(library.find("newmtl bark_Kd_9_9_9\n"), std::string::npos) << library;
  EXPECT_NE(library.find("map_Kd bark.png_map_Ks evil.png\n"), std::string::npos) << library;
  EXPECT_EQ(library.find("\nKd 9"), std::string::npos);
  EXPECT_EQ(library.find("\nmap_Ks"), std::string::npos);
}

TEST(HostileMaterials, sRgbBecomesLinearLight) {
  const std::pair<double, double> rows[] = {
      {0.0, 0.0}, {1.0, 1.0}, {0.04045, 0.04045 / 12.92}, {0.5, 0.21404114048223255}};
  for (const auto& [srgb, linear] : rows) {
    EXPECT_NEAR(mv::GlbWriter::linearFromSrgb(srgb), linear, 1e-15) << srgb;
  }
}

TEST(HostileMaterials, embeddedTextureTravelsInTheFile) {
  const std::string path = testOutputPath("embedded-texture.glb");
  writeSampleTexture(testOutputPath("embedded-bark.png"));
  mv::GlbWriter writer({{"bark", 0.4, 0.3, 0.2, "embedded-bark.png"}});
  mv::WriteOptions options;
  options.embedTextures = true;
  writer.setOptions(options);
  CapturingMessageHandler messages;
  ASSERT_TRUE(writer.write(sampleMesh(), path));
  const tinygltf::Model model = readGlb(path);
  ASSERT_EQ(model.images.size(), 1u);
  EXPECT_EQ(model.images[0].uri, "");
  EXPECT_EQ(model.images[0].mimeType, "image/png");
  EXPECT_EQ(model.images[0].width, 1);  // the reader decoded the stored picture
  EXPECT_TRUE(messages.warnings.empty());
}

TEST(HostileMaterials, missingTextureIsNamedInAWarning) {
  CapturingMessageHandler messages;
  const std::string path = testOutputPath("missing-texture.glb");
  ASSERT_TRUE(
      mv::GlbWriter({{"bark", 0.4, 0.3, 0.2, "nowhere/bark.png"}}).write(sampleMesh(), path));
  std::remove(path.c_str());  // a validator would rightly miss the picture
  ASSERT_EQ(messages.warnings.size(), 1u);
  EXPECT_NE(messages.warnings[0].find("\"nowhere/bark.png\" is not found beside"),
            std::string::npos);
}

// A scene may name a device as its texture: embedding it must neither hang nor read it.
TEST(HostileMaterials, deviceNamedAsATextureIsNotStored) {
  mv::GlbWriter writer({{"bark", 0.4, 0.3, 0.2, "/dev/zero"}});
  mv::WriteOptions options;
  options.embedTextures = true;
  writer.setOptions(options);
  CapturingMessageHandler messages;
  const std::string path = testOutputPath("device-texture.glb");
  ASSERT_TRUE(writer.write(sampleMesh(), path));
  const tinygltf::Model model = readGlb(path);
  std::remove(path.c_str());  // a validator would rightly miss the picture
  ASSERT_EQ(model.images.size(), 1u);
  EXPECT_EQ(model.images[0].uri, "zero");
  EXPECT_EQ(messages.warnings.back(),
            "texture \"/dev/zero\" cannot be read; referenced, not stored");
}

// A picture outside the output's folder stays where it is, even when asked to store pictures.
TEST(HostileMaterials, pictureOutsideTheFolderIsNotStored) {
  const std::string elsewhere = testOutputPath("elsewhere");
  std::filesystem::create_directories(elsewhere);
  writeSampleTexture(elsewhere + "/secret.png");
  const std::string absolute = std::filesystem::absolute(elsewhere + "/secret.png").string();
  mv::GlbWriter writer({{"bark", 0.4, 0.3, 0.2, absolute}});
  mv::WriteOptions options;
  options.embedTextures = true;
  writer.setOptions(options);
  CapturingMessageHandler messages;
  const std::string path = testOutputPath("outside-texture.glb");
  ASSERT_TRUE(writer.write(sampleMesh(), path));
  const tinygltf::Model model = readGlb(path);
  std::remove(path.c_str());  // a validator would rightly miss the picture
  ASSERT_EQ(model.images.size(), 1u);
  EXPECT_EQ(model.images[0].uri, "secret.png");
  EXPECT_EQ(model.images[0].bufferView, -1);
  EXPECT_EQ(messages.warnings.back(),
            "texture \"" + absolute + "\" cannot be read; referenced, not stored");
}
