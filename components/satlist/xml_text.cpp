#include "components/satlist/xml_text.h"

#include "platform/format.h"

#include <utility>

namespace tessaview {

std::string attributeText(std::string_view name, std::string_view value)
{
    std::string text(1, ' ');
    text.append(name).append("=\"");
    for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || c == '&' || c == '<' || c == '>' || c == '"')
            text += c == '&'   ? "&amp;"
                    : c == '<' ? "&lt;"
                    : c == '>' ? "&gt;"
                    : c == '"' ? "&quot;"
                               : formatted("&#%u;", byte);
        else
            text += c;
    }
    return text + '"';
}

XmlText::XmlText() : text_("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") {}

void XmlText::open(std::string_view element)
{
    endStartTag();
    newLine();
    text_ += '<';
    text_ += element;
    elements_.push_back(element);
    inStartTag_ = true;
}

void XmlText::content(std::string_view xml)
{
    if (xml.empty())
        return;
    endStartTag();
    if (xml.front() == '<') // blanks before a text would become part of it
        newLine();
    text_ += xml;
}

void XmlText::close()
{
    const std::string_view element = elements_.back();
    elements_.pop_back();
    if (inStartTag_) {
        text_ += " />";
        inStartTag_ = false;
        return;
    }
    if (text_.back() == '>') // and so would blanks after one
        newLine();
    text_ += "</";
    text_ += element;
    text_ += '>';
}

std::string XmlText::take()
{
    newLine();
    return std::move(text_);
}

void XmlText::endStartTag()
{
    if (inStartTag_)
        text_ += '>';
    inStartTag_ = false;
}

void XmlText::newLine()
{
    text_ += '\n';
    text_.append(2 * elements_.size(), ' ');
}

} // namespace tessaview
