#ifndef page_h
#define page_h

#include <string>

/// What stands around the content of every page.
struct PageFrame {
    std::string title;
    std::string root;    ///< the way from the page's folder to the site's: "" or "../"
    std::string content; ///< of <main>
};

/// A whole page with the head line and the switch between numbers from 0 and from 1.
std::string pageOf(PageFrame const & frame);

/// A page that leads to `target`, at once where the browser allows, else by its link.
std::string leadingPage(std::string const & label, std::string const & target);

#endif
