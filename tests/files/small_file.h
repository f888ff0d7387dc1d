// A design file written by hand, and a program to open it.
#pragma once

#include "base/numbers.h"
#include "file_program.h"
#include "files/fields.h"

namespace torvale {

// A file by hand: one survey row and one hole row, with what a test changes of it.
struct SmallFile {
  std::string version = "8.2.20";
  int type = kPlanned;
  int soil = -1;
  std::string pipe = "L";
  float acres = 12.34F;
  int watered = 1;
  std::vector<std::string> sizes;

  std::string Text() const {
    FieldWriter out;
    out.Text(version).EndRecord();
    out.Integer(1).EndRecord();
    for (const char* text : {"East 40", "5/14/2026", "6.5", "2", "Levee", "E"}) out.Text(text).EndRecord();
    for (const char* text : {"0", "100.00", "1000", "10", "15", "3/8", "1", "9"}) out.Text(text).EndRecord();
    out.Integer(type).EndRecord();
    for (const char* text : {"55", "1/2", "0.5", "120", "9"}) out.Text(text).EndRecord();
    out.Free(std::nullopt).EndRecord();
    out.Integer(1).Integer(9).EndRecord();
    out.Number32(6.5F).Number32(6.5F).EndRecord();
    out.Number32(99).Number32(0).EndRecord();
    out.Number32(2).Number32(2).EndRecord();
    out.Integer(0).Integer(0).EndRecord();
    out.Number32(121).Number32(0.51F).EndRecord();
    out.Number32(6.5F).Number32(6.5F).EndRecord();
    out.Integer(watered).Number32(1000).EndRecord();
    out.Free(std::nullopt).Text("saved as").Text(pipe).EndRecord();
    out.Number32(acres).Text("3/8").Text("0").EndRecord();
    out.Text("1").Number32(0).Integer(soil).EndRecord();
    for (int c = 0; c < 11; ++c) out.Text("cell").EndRecord();
    Row(out);
    if (Val(version) >= 2) {
      out.Integer(static_cast<int>(sizes.size())).EndRecord();
      for (const std::string& size : sizes) out.Number32(0.25F).Text(size).EndRecord();
    }
    if (Val(version) >= 6) {
      for (int i = 0; i < 4; ++i) out.Free({}).Free({}).Free({}).Free({}).Free({}).EndRecord();
    }
    out.Number32(6.5F).Free({}).Free({}).EndRecord();
    return out.text();
  }

 private:
  void Row(FieldWriter& out) const {
    out.Number32(100).EndRecord();
    out.Number32(100).Number32(0).EndRecord();
    out.Number32(6.5F).EndRecord();
    out.Number32(100).Number64(2).EndRecord();
    out.Number32(0).Number32(10).EndRecord();
    out.Number32(6.5F).Number32(0.375F).Number32(0.03125F).EndRecord();
    out.Number32(0.00077F).Integer(1).EndRecord();
    out.Number32(15).Number32(6.4F).EndRecord();
    out.Number32(176.625F).Integer(1000).Integer(1000).EndRecord();
    out.Number32(1).Text("9").EndRecord();
    if (Val(version) >= 2) out.Number32(0.5F).Text("kept").EndRecord();
  }
};

struct OpenFileTest : FileProgram, ::testing::Test {
  OpenFileTest() {
    FillPreferences();
    for (const char* soil : {"Sand", "Loam", "Clay"}) main.listSoils.Add(soil);
    for (int i = 1; i <= 3; ++i) record.SoilFurrowFlow[i] = static_cast<std::int16_t>(10 * i);
  }
  std::string OpenSmall(const SmallFile& file) {
    WriteTestFile(Path("small"), file.Text());
    return Open(Path("small"));
  }
};

}  // namespace torvale
