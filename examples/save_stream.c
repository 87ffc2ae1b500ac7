/* A simulation that stops and goes on where it was: the stream's image in a file. */
#include <orvik/front.h>
#include <stdio.h>
#include <string.h>

static int fail(orvik_status status) {
  fprintf(stderr, "%s\n", orvik_status_text(status));
  return 1;
}

int main(void) {
  orvik_stream *stream, *again;
  double before[5], after[5];
  char image[4096];
  int64_t size = sizeof image;
  orvik_status status = orvik_stream_new(&stream, ORVIK_MT19937, 42);
  if (status < 0) return fail(status);
  if ((status = orvik_d_uniform(stream, 5, before, 0, 1)) < 0) return fail(status);
  if ((status = orvik_stream_save(stream, image, &size)) < 0) return fail(status);
  FILE* file = tmpfile();
  if (!file || fwrite(image, 1, (size_t)size, file) != (size_t)size) return 1;

  rewind(file);
  memset(image, 0, sizeof image);
  size = (int64_t)fread(image, 1, sizeof image, file);
  fclose(file);
  if ((status = orvik_stream_load(&again, image, size)) < 0) return fail(status);
  orvik_d_uniform(stream, 5, before, 0, 1);
  orvik_d_uniform(again, 5, after, 0, 1);
  for (int i = 0; i < 5; ++i) printf("%.6f %.6f\n", before[i], after[i]);
  orvik_stream_delete(stream);
  orvik_stream_delete(again);
  return memcmp(before, after, sizeof before) != 0;
}
