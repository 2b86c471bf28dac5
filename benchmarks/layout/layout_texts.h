// A layout of many views and the XML document that says the same.
#pragma once

#include <string>

// `views` panes in frames of four; every value that the language could compute is an attribute's
// text in the XML.
std::string MakeLayoutText(int views);
std::string MakeXmlText(int views);
