#ifndef table_text_h
#define table_text_h

#include <shp_Shape.h>

#include <string>
#include <vector>

/// The shortest decimal number that is this float.
std::string floatText(float value);

/// A node, face, edge or point number counted from 0 or from 1, whichever the reader has chosen; right-aligned in
/// `width` columns.
std::string numberHtml(int number, int width = 0);
/// The same for text inside a picture.
std::string numberSvg(int number);

/// A table as text for <pre>.
struct TextTable {
    std::string title;
    std::string remark; ///< what rows and columns are
    std::string text;
};

/// Connectivity, locations and weights of an element type.
std::vector<TextTable> connectivityTables(shp_Shape const & shape);
std::vector<TextTable> locationTables(shp_Shape const & shape);
std::vector<TextTable> weightTables(shp_Shape const & shape);

#endif
