#include "host/model/Image.h"
namespace tarn { VClass ImageCls("Image", &VObjectCls);
struct Image::Source {};
Image::Image()=default; Image::Image(const VPathString& f):_fileName(f){} Image::~Image()=default;
Image::Image(const Image& o):VObject(o),_fileName(o._fileName){} Image& Image::operator=(const Image&o){_fileName=o._fileName;return *this;}
void Image::SetFileName(const VPathString&f){_fileName=f;}
int Image::Load(int){return 0;} int Image::GetExtents(int&,int&)const{return 0;}
int Image::ResizeInterpolated(int,int,int,int){return 0;} int Image::Save(const VPathString&,int,int){return 0;}
}
