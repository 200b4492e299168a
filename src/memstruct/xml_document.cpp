#include "memstruct/xml_document.h"

#include <utility>

namespace orvell::memstruct {

XmlNode::XmlNode(XmlNode&& other) noexcept
    : xml_(other.xml_), handle_(std::exchange(other.handle_, 0)) {}

XmlNode& XmlNode::operator=(XmlNode&& other) noexcept {
    if (this != &other) {
        Release();
        xml_ = other.xml_;
        handle_ = std::exchange(other.handle_, 0);
    }
    return *this;
}

void XmlNode::Release() {
    if (IsValid()) {
        xml_->FreeHandle(std::exchange(handle_, 0));
    }
}

XmlNode XmlNode::FirstChild() const {
    return IsValid() ? XmlNode(*xml_, xml_->FirstChild(handle_)) : XmlNode();
}

XmlNode XmlNode::Next() const {
    return IsValid() ? XmlNode(*xml_, xml_->NextNode(handle_)) : XmlNode();
}

XmlNode XmlNode::ChildByName(const std::string& name) const {
    return IsValid() ? XmlNode(*xml_, xml_->ChildByName(handle_, name.c_str())) : XmlNode();
}

XmlNode XmlNode::ChildByName(resources::StringId name) const {
    return IsValid() ? ChildByName(xml_->Strings().Text(name)) : XmlNode();
}

XmlNode XmlNode::AddChild(const std::string& name) const {
    return IsValid() ? XmlNode(*xml_, xml_->AddChild(handle_, name.c_str())) : XmlNode();
}

XmlNode XmlNode::AddChild(resources::StringId name) const {
    return IsValid() ? AddChild(xml_->Strings().Text(name)) : XmlNode();
}

std::string XmlNode::Name() const {
    std::string name;
    if (IsValid()) {
        xml_->NodeName(handle_, name);
    }
    return name;
}

bool XmlNode::NameIs(resources::StringId name) const {
    if (!IsValid()) {
        return false;
    }
    const std::string& wanted = xml_->Strings().Text(name);
    return !wanted.empty() && Name() == wanted;
}

std::uint32_t XmlNode::AttribCount() const {
    return IsValid() ? xml_->AttribCount(handle_) : 0;
}

bool XmlNode::AttribName(std::uint32_t index, std::string& out) const {
    out.clear();
    return IsValid() && xml_->AttribName(handle_, index, out);
}

bool XmlNode::AttribText(const std::string& name, std::string& out) const {
    out.clear();
    return IsValid() && xml_->AttribText(handle_, name.c_str(), out);
}

bool XmlNode::AttribText(resources::StringId name, std::string& out) const {
    out.clear();
    return IsValid() && AttribText(xml_->Strings().Text(name), out);
}

bool XmlNode::AttribULong(const std::string& name, std::uint32_t& out) const {
    out = 0;
    return IsValid() && xml_->AttribULong(handle_, name.c_str(), out);
}

bool XmlNode::AttribULong(resources::StringId name, std::uint32_t& out) const {
    out = 0;
    return IsValid() && AttribULong(xml_->Strings().Text(name), out);
}

bool XmlNode::SetAttribText(const std::string& name, const std::string& value) const {
    return IsValid() && xml_->SetAttribText(handle_, name.c_str(), value.c_str());
}

bool XmlDocument::Create() {
    Close();
    handle_ = xml_.Create();
    return handle_ != 0;
}

bool XmlDocument::Open(const std::string& path) {
    Close();
    handle_ = xml_.Open(path);
    return handle_ != 0;
}

bool XmlDocument::Save(const std::string& path) const {
    return handle_ != 0 && xml_.Save(handle_, path);
}

void XmlDocument::Close() {
    if (handle_ != 0) {
        xml_.Close(std::exchange(handle_, 0));
    }
}

XmlNode XmlDocument::Root() const {
    return handle_ != 0 ? XmlNode(xml_, xml_.RootNode(handle_)) : XmlNode();
}

XmlNode XmlDocument::AddRoot(const std::string& name) const {
    return handle_ != 0 ? XmlNode(xml_, xml_.AddRootNode(handle_, name.c_str())) : XmlNode();
}

XmlNode XmlDocument::AddRoot(resources::StringId name) const {
    return AddRoot(xml_.Strings().Text(name));
}

}  // namespace orvell::memstruct
