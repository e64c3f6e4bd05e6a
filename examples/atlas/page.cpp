#include "page.h"

std::string pageOf(PageFrame const & frame) {
    return R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>)" + frame.title +
           R"(</title>
<link rel="stylesheet" href=")" +
           frame.root + R"(atlas.css">
<link rel="icon" href="data:,">
<script src=")" +
           frame.root + R"(atlas.js" defer></script>
</head>
<body>
<header class="top">
<a class="home" href=")" +
           frame.root + R"(index.html">Element atlas</a>
<fieldset class="base">
<legend>Count from</legend>
<label><input type="radio" name="base" id="from0" checked>0</label>
<label><input type="radio" name="base" id="from1">1</label>
</fieldset>
</header>
<main>
)" + frame.content +
           R"(</main>
<footer>Drawn from the library's own tables.</footer>
</body>
</html>
)";
}

std::string leadingPage(std::string const & label, std::string const & target) {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n<title>" + label +
           "</title>\n<meta http-equiv=\"refresh\" content=\"0; url=" + target +
           "\">\n<link rel=\"icon\" href=\"data:,\">\n<p><a href=\"" + target + "\">" + label + "</a></p>\n</html>\n";
}
