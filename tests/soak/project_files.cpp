#include "project_files.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "failure.h"

namespace orvell::soak {

namespace {

constexpr std::string_view kDefinitions = R"(<?xml version="1.0" encoding="UTF-8"?>
<Definitions>
  <TypeList>
    <Type Name="Word" BaseType="UINT" Size="2"/>
    <Type Name="Label" BaseType="STRING" Size="8"/>
    <Type Name="Mode" BaseType="Enumerated" Size="1">
      <Item Value="1" Name="On"/>
      <Item Value="0" Name="Off"/>
      <Item Value="255" Name="Fault"/>
    </Type>
    <Type Name="I1" BaseType="INT" Size="1"/>
    <Type Name="I2" BaseType="INT" Size="2"/>
    <Type Name="I4" BaseType="INT" Size="4"/>
    <Type Name="I8" BaseType="INT" Size="8"/>
    <Type Name="U1" BaseType="UINT" Size="1"/>
    <Type Name="U4" BaseType="UINT" Size="4"/>
    <Type Name="U8" BaseType="UINT" Size="8"/>
    <Type Name="Day" BaseType="DATE" Format="DD.MM.YYYY"/>
    <Type Name="Moment" BaseType="DATE+TIME" Format="MM/DD/YYYY"/>
    <Type Name="Stamp" BaseType="OLE-DATE+TIME" Format="DD.MM.YYYY"/>
    <Type Name="Point" BaseType="Structured">
      <Item Name="x" Type="Word"/>
      <Item Name="y" Type="Word" Dimension="2"/>
    </Type>
    <Type Name="All" BaseType="Structured">
      <Item Name="i1" Type="I1"/>
      <Item Name="i2" Type="I2"/>
      <Item Name="i4" Type="I4"/>
      <Item Name="i8" Type="I8"/>
      <Item Name="u1" Type="U1"/>
      <Item Name="u4" Type="U4"/>
      <Item Name="u8" Type="U8"/>
      <Item Name="f" Type="FLOAT"/>
      <Item Name="d" Type="DOUBLE"/>
      <Item Name="s" Type="Label"/>
      <Item Name="du" Type="DURATION"/>
      <Item Name="ti" Type="TIME"/>
      <Item Name="da" Type="Day"/>
      <Item Name="dt" Type="Moment"/>
      <Item Name="o" Type="Stamp"/>
      <Item Name="m" Type="Mode"/>
      <Item Name="p" Type="Point"/>
    </Type>
  </TypeList>
  <MemoryList>
    <Memory ID="1" Type="Word"/>
    <Memory ID="2" Type="Mode"/>
    <Memory ID="3" Type="All"/>
  </MemoryList>
</Definitions>
)";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

void WriteDefinitions() {
    std::filesystem::create_directory(kDelivery);
    std::ofstream file(kProjectDefinitions, std::ios::binary);
    Require(static_cast<bool>(file << kDefinitions << std::flush), "the disk takes no file");
}

void AddFile(const char* path, OutputHash& output) {
    static std::array<char, 1 << 16> block;
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path, "rb"));
    Require(file != nullptr, std::string("there is no file ") + path);
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file.get())) {
        output.Add(std::string_view(block.data(), size));
    }
}

}  // namespace orvell::soak
