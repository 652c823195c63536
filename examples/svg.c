#include "svg.h"

#include <stdarg.h>

void begin_picture(FILE* svg, int width, int height) {
  fprintf(svg,
          "<svg xmlns='http://www.w3.org/2000/svg' width='%d' height='%d' viewBox='0 0 %d %d'>\n"
          "<style>\n"
          "svg{fill:none;stroke:#26333f}\n"
          "text{font:12px Helvetica,Arial,'DejaVu Sans',sans-serif;fill:#26333f;stroke:none}\n"
          ".title{font-size:21px;font-weight:bold}.head{font-weight:bold}\n"
          ".number{text-anchor:middle;font-size:11px;font-weight:bold}.bubble{fill:#fff}\n"
          ".mid{text-anchor:middle}.end{text-anchor:end}\n"
          ".halo{stroke:#fff;stroke-width:3px;paint-order:stroke}\n"
          ".paper{fill:#fff;stroke:none}\n"
          "</style>\n"
          "<rect class='paper' width='%d' height='%d'/>\n",
          width, height, width, height, width, height);
}

void put_text(FILE* svg, const char* style, double x, double y, const char* format, ...) {
  va_list values;
  va_start(values, format);
  fprintf(svg, "<text %s x='%.1f' y='%.1f' dy='.35em'>", style, x, y);
  vfprintf(svg, format, values);
  fputs("</text>\n", svg);
  va_end(values);
}

void put_name(FILE* svg, const char* style, double x, double y, const char* name) {
  fprintf(svg, "<text %s x='%.1f' y='%.1f' dy='.35em'>", style, x, y);
  for (; *name != '\0'; name++) {
    if (*name == '&')
      fputs("&amp;", svg);
    else if (*name == '<')
      fputs("&lt;", svg);
    else
      fputc(*name, svg);
  }
  fputs("</text>\n", svg);
}

void put_bubble(FILE* svg, double x, double y, int number) {
  fprintf(svg, "<circle class='bubble' cx='%.1f' cy='%.1f' r='11'/>", x, y);
  put_text(svg, "class='number'", x, y, "%d", number);
}

/* The round step (1, 2 or 5 times a power of ten) that divides a length into at most ten. */
float round_step(float length) {
  static const float factors[] = {2, 2.5f, 2};
  float step = 1;
  for (int i = 0; 10 * step < length; i++) step *= factors[i % 3];
  return step;
}
