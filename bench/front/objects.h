// Objects of the front beside the kernels that they call: a table in Markdown.
#pragma once

void compare_objects(double seconds);
